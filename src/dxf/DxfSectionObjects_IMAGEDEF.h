#pragma once

#include "template/DxfSection.h"
#include "template/SectionTable.h"

namespace rasterplan {

/// The definition of an image: its file, its size in pixels and the size of one pixel in millimetres.
inline constexpr auto imageDefRows = RecordTable({
    {L"#VEXO_OBJ_GROUPCODE#", "0"},
    {L"#VEXO_OBJNAME#", "IMAGEDEF"},
    {L"#VEXO_OBJHANDLE_GROUPCODE#", "5"},
    {L"#VEXO_OBJHANDLE#", "59", filled},
    {L"#VEXO_OBJ_REACTORSTARTGROUPCODE#", "102"},
    {L"#VEXO_OBJ_REACTORSTART#", "{ACAD_REACTORS"},
    {L"#VEXO_OBJ_DICTHANDLEGROUPCODE#", "330"},
    {L"#VEXO_OBJ_DICTHANDLE#", "5A"},
    {L"#VEXO_OBJ_REACTORHANDLE_GROUPCODE#", "330"},
    {L"#VEXO_OBJ_REACTORHANDLE#", "5B", filled},
    {L"#VEXO_OBJ_REACTORENDGROUPCODE#", "102"},
    {L"#VEXO_OBJ_REACTOREND#", "}"},
    {L"#VEXO_OBJ_DICTHANDLEGROUPCODE2#", "330"},
    {L"#VEXO_OBJ_DICTHANDLE2#", "5A"},
    {L"#VEXO_OBJ_SUBCLASSACDBRASTERIMGDEF_GROUPCODESTR#", "100"},
    {L"#VEXO_OBJ_SUBCLASSACDBRASTERIMGDEF#", "AcDbRasterImageDef"},
    {L"#VEXO_OBJ_CLASSVERSION_GROUPCODE#", "90"},
    {L"#VEXO_OBJ_CLASSVERSION#", "0"},
    {L"#VEXO_OBJ_FILENAME_GROUPCODE#", "1"},
    {L"#VEXO_OBJ_FILENAME#", "", filled},
    {L"#VEXO_OBJ_IMGSIZEU_GROUPCODE#", "10"},
    {L"#VEXO_OBJ_IMGSIZEU#", "", filled},
    {L"#VEXO_OBJ_IMGSIZEV_GROUPCODE#", "20"},
    {L"#VEXO_OBJ_IMGSIZEV#", "", filled},
    {L"#VEXO_OBJ_PIXELSIZEU_GROUPCODE#", "11"},
    {L"#VEXO_OBJ_PIXELSIZEU#", "10.0", filled},
    {L"#VEXO_OBJ_PIXELSIZEV_GROUPCODE#", "21"},
    {L"#VEXO_OBJ_PIXELSIZEV#", "10.0", filled},
    {L"#VEXO_OBJ_IMGLOADED_GROUPCODE#", "280"},
    {L"#VEXO_OBJ_IMGLOADED#", "1"},
    {L"#VEXO_OBJ_RESOLUTIONUNIT_GROUPCODE#", "281"},
    {L"#VEXO_OBJ_RESOLUTIONUNIT#", "5"},
});
inline constexpr SectionTable imageDefTable = imageDefRows.table();

/// One image definition with default handles and without a file.
class DxfSectionObjects_IMAGEDEF final : public DxfSection {
public:
    DxfSectionObjects_IMAGEDEF()
        : DxfSection(imageDefTable) {}
};

} // namespace rasterplan
