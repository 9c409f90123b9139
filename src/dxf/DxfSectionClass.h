#pragma once

#include "template/DxfSection.h"

#include <cstdint>
#include <string_view>

namespace rasterplan {

/// A CLASS record.
struct DxfSectionClass_INSTANCE : DxfSection<DxfSectionClass_INSTANCE> {
    DxfSectionClass_INSTANCE(std::int32_t instances_, std::string_view recordName_,
                             std::string_view className_, std::string_view proxyFlags_,
                             std::string_view isEntity_) noexcept
        : recordName(recordName_)
        , className(className_)
        , proxyFlags(proxyFlags_)
        , instances(instances_)
        , isEntity(isEntity_) {}

    const std::string_view recordName;
    const std::string_view className;
    const std::string_view proxyFlags;
    const std::int32_t instances;
    const std::string_view isEntity;

    // clang-format off
    static consteval auto pairs() { return std::to_array<Pair<Self>>({
        {"0",   "CLASS",           L"#VEXO_CLASS_GROUPCODE#",    L"#VEXO_CLASSNAME#"},
        {"1",   &Self::recordName, L"#VEXO_GROUPCODE#",          L"#VEXO_RECORDNAME#"},
        {"2",   &Self::className,  L"#VEXO_CNAME_GROUPCODE#",    L"#VEXO_CNAME#"},
        {"3",   "ISM",             L"#VEXO_APPNAME_GROUPCODE#",  L"#VEXO_APPNAME#"}, // application
        {"90",  &Self::proxyFlags, L"#VEXO_PROXYCAP_GROUPCODE#", L"#VEXO_PROXYCAP_FLAG#"}, // what a program may do that does not know the class
        {"91",  &Self::instances,  L"#VEXO_NUM_GROUPCODE#",      L"#VEXO_NUM#"}, // number of records
        {"280", "0",               L"#VEXO_LOADFLAG_GROUPCODE#", L"#VEXO_LOADFLAG#"}, // was no proxy
        {"281", &Self::isEntity,   L"#VEXO_ENTFLAG_GROUPCODE#",  L"#VEXO_ENTFLAG#"},
    }); }
    // clang-format on
};

/// The class of IMAGE, the only one of the three whose instances are entities.
struct DxfSectionClass_IMAGE : DxfSectionClass_INSTANCE {
    explicit DxfSectionClass_IMAGE(std::int32_t count) noexcept
        : DxfSectionClass_INSTANCE(count, "IMAGE", "AcDbRasterImage", "2175", "1") {}
};

/// The class of IMAGEDEF.
struct DxfSectionClass_IMAGEDEF : DxfSectionClass_INSTANCE {
    explicit DxfSectionClass_IMAGEDEF(std::int32_t count) noexcept
        : DxfSectionClass_INSTANCE(count, "IMAGEDEF", "AcDbRasterImageDef", "0", "0") {}
};

/// The class of IMAGEDEF_REACTOR.
struct DxfSectionClass_IMAGEDEF_REACTOR : DxfSectionClass_INSTANCE {
    explicit DxfSectionClass_IMAGEDEF_REACTOR(std::int32_t count) noexcept
        : DxfSectionClass_INSTANCE(count, "IMAGEDEF_REACTOR", "AcDbRasterImageDefReactor", "1", "0") {}
};

} // namespace rasterplan
