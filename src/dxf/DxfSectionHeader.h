#pragma once

#include "template/DxfSection.h"

#include <cstdint>
#include <string_view>

namespace rasterplan {

/// A header variable that holds a handle.
struct DxfSectionHeaderVar : DxfSection<DxfSectionHeaderVar> {
    DxfSectionHeaderVar(std::string_view name_, Handle value_) noexcept
        : name(name_)
        , value(value_) {}

    const std::string_view name;
    const Handle value;

    // clang-format off
    static consteval auto pairs() { return std::to_array<Pair<Self>>({
        {"9", &Self::name,  L"#VEXO_VAR_GROUPCODE#",       L"#VEXO_VAR_VARNAME#"},
        {"5", &Self::value, L"#VEXO_VAR_HANDLEGROUPCODE#", L"#VEXO_VAR_HANDLEVALUE#"},
    }); }
    // clang-format on
};

/// A header variable that holds a point.
struct DxfSectionHeaderVarBox : DxfSection<DxfSectionHeaderVarBox> {
    DxfSectionHeaderVarBox(std::string_view name_, const MathPoint3d& value_) noexcept
        : name(name_)
        , value(value_) {}

    const std::string_view name;
    const MathPoint3d value;

    // clang-format off
    static consteval auto pairs() { return std::to_array<Pair<Self>>({
        {"9",  &Self::name,     L"#VEXO_EXTVAR_GROUPCODE#",  L"#VEXO_EXTVAR_VARNAME#"},
        {"10", x(&Self::value), L"#VEXO_EXTVARX_GROUPCODE#", L"#VEXO_EXTVARX_VALUE#"},
        {"20", y(&Self::value), L"#VEXO_EXTVARY_GROUPCODE#", L"#VEXO_EXTVARY_VALUE#"},
        {"30", z(&Self::value), L"#VEXO_EXTVARZ_GROUPCODE#", L"#VEXO_EXTVARZ_VALUE#"},
    }); }
    // clang-format on
};

/// $EXTMIN.
struct DxfHeaderSection_EXTMIN : DxfSectionHeaderVarBox {
    explicit DxfHeaderSection_EXTMIN(const MathPoint3d& least) noexcept
        : DxfSectionHeaderVarBox("$EXTMIN", least) {}
};

/// $EXTMAX.
struct DxfHeaderSection_EXTMAX : DxfSectionHeaderVarBox {
    explicit DxfHeaderSection_EXTMAX(const MathPoint3d& greatest) noexcept
        : DxfSectionHeaderVarBox("$EXTMAX", greatest) {}
};

/// $HANDSEED, above every handle of the drawing.
struct DxfHeaderSection_HANDSEED : DxfSectionHeaderVar {
    explicit DxfHeaderSection_HANDSEED(Handle next) noexcept
        : DxfSectionHeaderVar("$HANDSEED", next) {}
};

/// $INSUNITS.
struct DxfHeaderSection_INSUNITS : DxfSection<DxfHeaderSection_INSUNITS> {
    explicit DxfHeaderSection_INSUNITS(std::int32_t unit_) noexcept
        : unit(unit_) {}

    const std::int32_t unit;

    // clang-format off
    static consteval auto pairs() { return std::to_array<Pair<Self>>({
        {"9",  "$INSUNITS", L"#VEXO_INSUNIT_VAR_GROUPCODE#",  L"#VEXO_INSUNIT_VAR_NAME#"},
        {"70", &Self::unit, L"#VEXO_INSUNIT_UNIT_GROUPCODE#", L"#VEXO_INSUNIT_UNIT_VALUE#"},
    }); }
    // clang-format on
};

} // namespace rasterplan
