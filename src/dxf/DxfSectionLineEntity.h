#pragma once

#include "template/DxfSection.h"
#include "template/SectionTable.h"

namespace rasterplan {

/// The LINE entity. Keys are as odd as they stand; they are names like any other.
inline constexpr auto lineEntityRows = RecordTable({
    {L"#VEXO_ENTITYLINE_GROUPCODE#", "0"},
    {L"#VEXO_ENTITYLINE_NAME#", "LINE"},
    {L"#VEXO_ENTITYLINEHANDLE_GROUPCODE#", "5"},
    {L"#VEXO_ENTITYLINEHANDLE#", "", filled},
    {L"#VEXO_ENTITYLINE_SUBCLASSACDBENTITY_GROUPCODESTR#", "100"},
    {L"#VEXO_ENTITYLINE_SUBCLASSACDBENTITY#", "AcDbEntity"},
    {L"#VEXO_ENTITYLINE_LAYER_GROUPCODE#", "8"},
    {L"#VEXO_ENTITYLINE_LAYER#", "0"},
    {L"#VEXO_ENTITYLINE_CLASSACDBLINE_GROUPCODE2#", "100"},
    {L"#VEXO_ENTITYLINE_CLASSACDLINE#", "AcDbLine"},
    {L"#VEXO_ENTITYLINE_STARTPNTX_GROUPCODE#", "10"},
    {L"#VEXO_ENTITYLINE_STARTPNTX#", "", filled},
    {L"#VEXO_ENTITYLINE_STARTPNTY_GROUPCODE#", "20"},
    {L"#VEXO_ENTITYLINE_STARTPNTY#", "", filled},
    {L"#VEXO_ENTITYLINE_STARTPNTZ_GROUPCODE#", "30"},
    {L"#VEXO_ENTITYLINE_STARTPNTZ#", "", filled},
    {L"#VEXO_ENTITYLINE_ENDPNTXGROUPCODE#", "11"},
    {L"#VEXO_ENTITYLINE_ENDPNTX#", "", filled},
    {L"#VEXO_ENTITYLINE_ENDPNTY_GROUPCODE#", "21"},
    {L"#VEXO_ENTITYLINE_ENDPNTY#", "", filled},
    {L"#VEXO_ENTITYLINE_ENDPNTZ_GROUPCODE#", "31"},
    {L"#VEXO_ENTITYLINE_ENDPNTZ#", "", filled},
});
inline constexpr SectionTable lineEntityTable = lineEntityRows.table();

/// One LINE entity without handle and end points.
class DxfSectionLineEntity final : public DxfSection {
public:
    DxfSectionLineEntity()
        : DxfSection(lineEntityTable) {}
};

} // namespace rasterplan
