#pragma once

#include "template/DxfSection.h"
#include "template/SectionTable.h"

#include <limits>

namespace rasterplan {

/// A header variable that holds a handle.
inline constexpr auto headerVarRows = RecordTable({
    {L"#VEXO_VAR_GROUPCODE#", "9"},
    {L"#VEXO_VAR_VARNAME#", "", filled},
    {L"#VEXO_VAR_HANDLEGROUPCODE#", "5"},
    {L"#VEXO_VAR_HANDLEVALUE#", "", filled},
});
inline constexpr SectionTable headerVarTable = headerVarRows.table();

/// A header variable that holds a point.
inline constexpr auto headerVarBoxRows = RecordTable({
    {L"#VEXO_EXTVAR_GROUPCODE#", "9"},
    {L"#VEXO_EXTVAR_VARNAME#", "", filled},
    {L"#VEXO_EXTVARX_GROUPCODE#", "10"},
    {L"#VEXO_EXTVARX_VALUE#", "", filled},
    {L"#VEXO_EXTVARY_GROUPCODE#", "20"},
    {L"#VEXO_EXTVARY_VALUE#", "", filled},
    {L"#VEXO_EXTVARZ_GROUPCODE#", "30"},
    {L"#VEXO_EXTVARZ_VALUE#", "", filled},
});
inline constexpr SectionTable headerVarBoxTable = headerVarBoxRows.table();

/// $INSUNITS; metres until an image says otherwise.
inline constexpr auto headerInsUnitsRows = RecordTable({
    {L"#VEXO_INSUNIT_VAR_GROUPCODE#", "9"},
    {L"#VEXO_INSUNIT_VAR_NAME#", "$INSUNITS"},
    {L"#VEXO_INSUNIT_UNIT_GROUPCODE#", "70"},
    {L"#VEXO_INSUNIT_UNIT_VALUE#", "6", filled},
});
inline constexpr SectionTable headerInsUnitsTable = headerInsUnitsRows.table();

/// Shared by the variables that hold a handle.
class DxfSectionHeaderVar : public DxfSection {
public:
    DxfSectionHeaderVar()
        : DxfSection(headerVarTable) {}
};

/// Shared by the variables that hold a point.
class DxfSectionHeaderVarBox : public DxfSection {
public:
    DxfSectionHeaderVarBox()
        : DxfSection(headerVarBoxTable) {}

protected:
    /// Names the variable and sets all three coordinates.
    void start(const wchar_t* name, double coordinate) {
        setPlaceholderValue(headerVarBoxRows[L"#VEXO_EXTVAR_VARNAME#"], name);
        setPlaceholderValue(headerVarBoxRows[L"#VEXO_EXTVARX_VALUE#"], coordinate);
        setPlaceholderValue(headerVarBoxRows[L"#VEXO_EXTVARY_VALUE#"], coordinate);
        setPlaceholderValue(headerVarBoxRows[L"#VEXO_EXTVARZ_VALUE#"], coordinate);
    }
};

/// $EXTMIN: starts above every coordinate.
class DxfHeaderSection_EXTMIN final : public DxfSectionHeaderVarBox {
public:
    DxfHeaderSection_EXTMIN() { start(L"$EXTMIN", std::numeric_limits<double>::max()); }
};

/// $EXTMAX: starts at the smallest positive double, which is written as zero. So an axis on which every image
/// lies below zero keeps zero.
class DxfHeaderSection_EXTMAX final : public DxfSectionHeaderVarBox {
public:
    DxfHeaderSection_EXTMAX() { start(L"$EXTMAX", std::numeric_limits<double>::min()); }
};

/// $HANDSEED, without a value until all handles are given.
class DxfHeaderSection_HANDSEED final : public DxfSectionHeaderVar {
public:
    DxfHeaderSection_HANDSEED() { setPlaceholderValue(headerVarRows[L"#VEXO_VAR_VARNAME#"], L"$HANDSEED"); }
};

/// $INSUNITS.
class DxfHeaderSection_INSUNITS final : public DxfSection {
public:
    DxfHeaderSection_INSUNITS()
        : DxfSection(headerInsUnitsTable) {}
};

} // namespace rasterplan
