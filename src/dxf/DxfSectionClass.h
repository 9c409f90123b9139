#pragma once

#include "template/DxfSection.h"
#include "template/SectionTable.h"

#include <cstdint>

namespace rasterplan {

/// A CLASS record.
inline constexpr auto classRows = RecordTable({
    {L"#VEXO_CLASS_GROUPCODE#", "0"},
    {L"#VEXO_CLASSNAME#", "CLASS"},
    {L"#VEXO_GROUPCODE#", "1"},
    {L"#VEXO_RECORDNAME#", "", filled},
    {L"#VEXO_CNAME_GROUPCODE#", "2"},
    {L"#VEXO_CNAME#", "", filled},
    {L"#VEXO_APPNAME_GROUPCODE#", "3"},
    {L"#VEXO_APPNAME#", "ISM"},
    {L"#VEXO_PROXYCAP_GROUPCODE#", "90"},
    {L"#VEXO_PROXYCAP_FLAG#", "0", filled},
    {L"#VEXO_NUM_GROUPCODE#", "91"},
    {L"#VEXO_NUM#", "", filled},
    {L"#VEXO_LOADFLAG_GROUPCODE#", "280"},
    {L"#VEXO_LOADFLAG#", "0"},
    {L"#VEXO_ENTFLAG_GROUPCODE#", "281"},
    {L"#VEXO_ENTFLAG#", "0", filled},
});
inline constexpr SectionTable classTable = classRows.table();

/// A CLASS record with the number of its instances, still without a name.
class DxfSectionClass_INSTANCE : public DxfSection {
public:
    explicit DxfSectionClass_INSTANCE(std::int32_t instances)
        : DxfSection(classTable) {
        setPlaceholderValue(classRows[L"#VEXO_NUM#"], instances);
    }
};

/// The class of IMAGE, the only one of the three whose instances are entities.
class DxfSectionClass_IMAGE final : public DxfSectionClass_INSTANCE {
public:
    explicit DxfSectionClass_IMAGE(std::int32_t instances)
        : DxfSectionClass_INSTANCE(instances) {
        setPlaceholderValue(classRows[L"#VEXO_RECORDNAME#"], L"IMAGE");
        setPlaceholderValue(classRows[L"#VEXO_CNAME#"], L"AcDbRasterImage");
        setPlaceholderValue(classRows[L"#VEXO_PROXYCAP_FLAG#"], L"2175");
        setPlaceholderValue(classRows[L"#VEXO_ENTFLAG#"], L"1");
    }
};

/// The class of IMAGEDEF.
class DxfSectionClass_IMAGEDEF final : public DxfSectionClass_INSTANCE {
public:
    explicit DxfSectionClass_IMAGEDEF(std::int32_t instances)
        : DxfSectionClass_INSTANCE(instances) {
        setPlaceholderValue(classRows[L"#VEXO_RECORDNAME#"], L"IMAGEDEF");
        setPlaceholderValue(classRows[L"#VEXO_CNAME#"], L"AcDbRasterImageDef");
        setPlaceholderValue(classRows[L"#VEXO_PROXYCAP_FLAG#"], L"0");
    }
};

/// The class of IMAGEDEF_REACTOR.
class DxfSectionClass_IMAGEDEF_REACTOR final : public DxfSectionClass_INSTANCE {
public:
    explicit DxfSectionClass_IMAGEDEF_REACTOR(std::int32_t instances)
        : DxfSectionClass_INSTANCE(instances) {
        setPlaceholderValue(classRows[L"#VEXO_RECORDNAME#"], L"IMAGEDEF_REACTOR");
        setPlaceholderValue(classRows[L"#VEXO_CNAME#"], L"AcDbRasterImageDefReactor");
        setPlaceholderValue(classRows[L"#VEXO_PROXYCAP_FLAG#"], L"1");
    }
};

} // namespace rasterplan
