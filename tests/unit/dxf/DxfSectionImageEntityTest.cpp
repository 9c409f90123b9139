#include "dxf/DxfSectionImageEntity.h"

#include "ExpectedRecord.h"

#include <gtest/gtest.h>

#include <iterator>

using namespace rasterplan;
using namespace rasterplan::test;

namespace {

constexpr ExpectedLine lines[] = {
    {L"#VEXO_ENTITYIMAGE_GROUPCODE#", L"0"},
    {L"#VEXO_ENTITYIMAGE_NAME#", L"IMAGE"},
    {L"#VEXO_ENTITYIMAGEHANDLE_GROUPCODE#", L"5"},
    {L"#VEXO_ENTITYIMAGE_HANDLE#", L"", filled},
    {L"#VEXO_ENTITYIMAGE_DICTHANDLE_GROUPCODE#", L"330"},
    {L"#VEXO_ENTITYIMAGE_DICTHANDLE#", L"2"},
    {L"#VEXO_ENTITYIMAGE_SUBCLASSACDBENTITY_GROUPCODESTR#", L"100"},
    {L"#VEXO_ENTITYIMAGE_SUBCLASSACDBENTITY#", L"AcDbEntity"},
    {L"#VEXO_ENTITYIMAGE_LAYER_GROUPCODE#", L"8"},
    {L"#VEXO_ENTITYIMAGE_LAYER#", L"0"},
    {L"#VEXO_ENTITYIMAGE_UNDEFINED1#", L"160"},
    {L"#VEXO_ENTITYIMAGE_UNDEFINED2#", L"140"},
    {L"#VEXO_ENTITYIMAGE_SUBCLASSACDBRASTERIMAGE_GROUPCODE2#", L"100"},
    {L"#VEXO_ENTITYIMAGE_SUBCLASSACDBRASTERIMAGE#", L"AcDbRasterImage"},
    {L"#VEXO_ENTITYIMAGE_CLASSVERSION_GROUPCODE#", L"90"},
    {L"#VEXO_ENTITYIMAGE_CLASSVERSION#", L"0"},
    {L"#VEXO_ENTITYIMAGE_INSPNTX_GROUPCODE#", L"10"},
    {L"#VEXO_ENTITYIMAGE_INSPNTX#", L"", filled},
    {L"#VEXO_ENTITYIMAGE_INSPNTY_GROUPCODE#", L"20"},
    {L"#VEXO_ENTITYIMAGE_INSPNTY#", L"", filled},
    {L"#VEXO_ENTITYIMAGE_INSPNTZ_GROUPCODE#", L"30"},
    {L"#VEXO_ENTITYIMAGE_INSPNTZ#", L"", filled},
    {L"#VEXO_ENTITYIMAGE_UVECX_GROUPCODE#", L"11"},
    {L"#VEXO_ENTITYIMAGE_UVECX#", L"", filled},
    {L"#VEXO_ENTITYIMAGE_UVECY_GROUPCODE#", L"21"},
    {L"#VEXO_ENTITYIMAGE_UVECY#", L"", filled},
    {L"#VEXO_ENTITYIMAGE_UVECZ_GROUPCODE#", L"31"},
    {L"#VEXO_ENTITYIMAGE_UVECZ#", L"", filled},
    {L"#VEXO_ENTITYIMAGE_VVECX_GROUPCODE#", L"12"},
    {L"#VEXO_ENTITYIMAGE_VVECX#", L"", filled},
    {L"#VEXO_ENTITYIMAGE_VVECY_GROUPCODE#", L"22"},
    {L"#VEXO_ENTITYIMAGE_VVECY#", L"", filled},
    {L"#VEXO_ENTITYIMAGE_VVECZ_GROUPCODE#", L"32"},
    {L"#VEXO_ENTITYIMAGE_VVECZ#", L"", filled},
    {L"#VEXO_ENTITYIMAGE_IMGSIZEU_GROUPCODE#", L"13"},
    {L"#VEXO_ENTITYIMAGE_IMGSIZEU#", L"", filled},
    {L"#VEXO_ENTITYIMAGE_IMGSIZEV_GROUPCODE#", L"23"},
    {L"#VEXO_ENTITYIMAGE_IMGSIZEV#", L"", filled},
    {L"#VEXO_ENTITYIMAGE_OBJPOINTER_GROUPCODE#", L"340"},
    {L"#VEXO_ENTITYIMAGE_OBJPOINTER#", L"", filled},
    {L"#VEXO_ENTITYIMAGE_IMGDISPLAY_GROUPCODE#", L"70"},
    {L"#VEXO_ENTITYIMAGE_IMGDISPLAY#", L"15"},
    {L"#VEXO_ENTITYIMAGE_CLIPSTATE_GROUPCODE#", L"280"},
    {L"#VEXO_ENTITYIMAGE_CLIPSTATE#", L"0"},
    {L"#VEXO_ENTITYIMAGE_BRIGHT_GROUPCODE#", L"281"},
    {L"#VEXO_ENTITYIMAGE_BRIGHT#", L"50"},
    {L"#VEXO_ENTITYIMAGE_CONTRAST_GROUPCODE#", L"282"},
    {L"#VEXO_ENTITYIMAGE_CONTRAST#", L"50"},
    {L"#VEXO_ENTITYIMAGE_FADE_GROUPCODE#", L"283"},
    {L"#VEXO_ENTITYIMAGE_FADE#", L"0"},
    {L"#VEXO_ENTITYIMAGE_UNDEFINED3#", L"290"},
    {L"#VEXO_ENTITYIMAGE_UNDEFINED4#", L"0"},
    {L"#VEXO_ENTITYIMAGE_HANDLEIMGDEFREACTOR_GROUPCODE#", L"360"},
    {L"#VEXO_ENTITYIMAGE_HANDLEIMGDEFREACTOR#", L"", filled},
    {L"#VEXO_ENTITYIMAGE_CLIPBOUNDTYPE_GROUPCODE#", L"71"},
    {L"#VEXO_ENTITYIMAGE_CLIPBOUNDTYPE#", L"", filled},
    {L"#VEXO_ENTITYIMAGE_CLIPBOUNDVERTNUM_GROUPCODE#", L"91"},
    {L"#VEXO_ENTITYIMAGE_CLIPBOUNDVERTNUM#", L"", filled},
    {L"#VEXO_ENTITYIMAGE_CLIPBOUNDVERTX1_GROUPCODE#", L"14"},
    {L"#VEXO_ENTITYIMAGE_CLIPBOUNDVERTX1#", L"-0.5"},
    {L"#VEXO_ENTITYIMAGE_CLIPBOUNDVERTY1_GROUPCODE#", L"24"},
    {L"#VEXO_ENTITYIMAGE_CLIPBOUNDVERTY1#", L"-0.5"},
    {L"#VEXO_ENTITYIMAGE_CLIPBOUNDVERTX2_GROUPCODE#", L"14"},
    {L"#VEXO_ENTITYIMAGE_CLIPBOUNDVERTX2#", L"-0.5", filled},
    {L"#VEXO_ENTITYIMAGE_CLIPBOUNDVERTY2_GROUPCODE#", L"24"},
    {L"#VEXO_ENTITYIMAGE_CLIPBOUNDVERTY2#", L"-0.5", filled},
};

} // namespace

TEST(DxfSectionImageEntity, HasTheseLines) {
    ASSERT_EQ(std::size(lines), 66u);
    expectTable(imageEntityTable, lines);
    expectLines(DxfSectionImageEntity(), lines);
}

TEST(DxfSectionImageEntity, StartsWithoutValuesOfAPicture) {
    EXPECT_EQ(DxfSectionImageEntity().render(), L"0\nIMAGE\n"
                                                L"5\n\n"
                                                L"330\n2\n"
                                                L"100\nAcDbEntity\n"
                                                L"8\n0\n"
                                                L"160\n140\n"
                                                L"100\nAcDbRasterImage\n"
                                                L"90\n0\n"
                                                L"10\n\n20\n\n30\n\n"
                                                L"11\n\n21\n\n31\n\n"
                                                L"12\n\n22\n\n32\n\n"
                                                L"13\n\n23\n\n"
                                                L"340\n\n"
                                                L"70\n15\n"
                                                L"280\n0\n281\n50\n282\n50\n283\n0\n"
                                                L"290\n0\n"
                                                L"360\n\n"
                                                L"71\n\n91\n\n"
                                                L"14\n-0.5\n24\n-0.5\n14\n-0.5\n24\n-0.5\n");
}
