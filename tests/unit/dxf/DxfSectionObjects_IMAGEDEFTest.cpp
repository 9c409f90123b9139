#include "dxf/DxfSectionObjects_IMAGEDEF.h"

#include "ExpectedRecord.h"

#include <gtest/gtest.h>

#include <iterator>

using namespace rasterplan;
using namespace rasterplan::test;

namespace {

constexpr ExpectedLine lines[] = {
    {L"#VEXO_OBJ_GROUPCODE#", L"0"},
    {L"#VEXO_OBJNAME#", L"IMAGEDEF"},
    {L"#VEXO_OBJHANDLE_GROUPCODE#", L"5"},
    {L"#VEXO_OBJHANDLE#", L"59", filled},
    {L"#VEXO_OBJ_REACTORSTARTGROUPCODE#", L"102"},
    {L"#VEXO_OBJ_REACTORSTART#", L"{ACAD_REACTORS"},
    {L"#VEXO_OBJ_DICTHANDLEGROUPCODE#", L"330"},
    {L"#VEXO_OBJ_DICTHANDLE#", L"5A"},
    {L"#VEXO_OBJ_REACTORHANDLE_GROUPCODE#", L"330"},
    {L"#VEXO_OBJ_REACTORHANDLE#", L"5B", filled},
    {L"#VEXO_OBJ_REACTORENDGROUPCODE#", L"102"},
    {L"#VEXO_OBJ_REACTOREND#", L"}"},
    {L"#VEXO_OBJ_DICTHANDLEGROUPCODE2#", L"330"},
    {L"#VEXO_OBJ_DICTHANDLE2#", L"5A"},
    {L"#VEXO_OBJ_SUBCLASSACDBRASTERIMGDEF_GROUPCODESTR#", L"100"},
    {L"#VEXO_OBJ_SUBCLASSACDBRASTERIMGDEF#", L"AcDbRasterImageDef"},
    {L"#VEXO_OBJ_CLASSVERSION_GROUPCODE#", L"90"},
    {L"#VEXO_OBJ_CLASSVERSION#", L"0"},
    {L"#VEXO_OBJ_FILENAME_GROUPCODE#", L"1"},
    {L"#VEXO_OBJ_FILENAME#", L"", filled},
    {L"#VEXO_OBJ_IMGSIZEU_GROUPCODE#", L"10"},
    {L"#VEXO_OBJ_IMGSIZEU#", L"", filled},
    {L"#VEXO_OBJ_IMGSIZEV_GROUPCODE#", L"20"},
    {L"#VEXO_OBJ_IMGSIZEV#", L"", filled},
    {L"#VEXO_OBJ_PIXELSIZEU_GROUPCODE#", L"11"},
    {L"#VEXO_OBJ_PIXELSIZEU#", L"10.0", filled},
    {L"#VEXO_OBJ_PIXELSIZEV_GROUPCODE#", L"21"},
    {L"#VEXO_OBJ_PIXELSIZEV#", L"10.0", filled},
    {L"#VEXO_OBJ_IMGLOADED_GROUPCODE#", L"280"},
    {L"#VEXO_OBJ_IMGLOADED#", L"1"},
    {L"#VEXO_OBJ_RESOLUTIONUNIT_GROUPCODE#", L"281"},
    {L"#VEXO_OBJ_RESOLUTIONUNIT#", L"5"},
};

} // namespace

TEST(DxfSectionObjects_IMAGEDEF, HasTheseLines) {
    ASSERT_EQ(std::size(lines), 32u);
    expectTable(imageDefTable, lines);
    expectLines(DxfSectionObjects_IMAGEDEF(), lines);
}

TEST(DxfSectionObjects_IMAGEDEF, StartsWithDefaultHandlesAndPixelSize) {
    EXPECT_EQ(DxfSectionObjects_IMAGEDEF().render(), L"0\nIMAGEDEF\n"
                                                     L"5\n59\n"
                                                     L"102\n{ACAD_REACTORS\n330\n5A\n330\n5B\n102\n}\n"
                                                     L"330\n5A\n"
                                                     L"100\nAcDbRasterImageDef\n"
                                                     L"90\n0\n"
                                                     L"1\n\n"
                                                     L"10\n\n20\n\n"
                                                     L"11\n10.0\n21\n10.0\n"
                                                     L"280\n1\n281\n5\n");
}
