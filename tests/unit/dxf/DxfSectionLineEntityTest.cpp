#include "dxf/DxfSectionLineEntity.h"

#include "ExpectedRecord.h"

#include <gtest/gtest.h>

#include <iterator>

using namespace rasterplan;
using namespace rasterplan::test;

namespace {

constexpr ExpectedLine lines[] = {
    {L"#VEXO_ENTITYLINE_GROUPCODE#", L"0"},
    {L"#VEXO_ENTITYLINE_NAME#", L"LINE"},
    {L"#VEXO_ENTITYLINEHANDLE_GROUPCODE#", L"5"},
    {L"#VEXO_ENTITYLINEHANDLE#", L"", filled},
    {L"#VEXO_ENTITYLINE_SUBCLASSACDBENTITY_GROUPCODESTR#", L"100"},
    {L"#VEXO_ENTITYLINE_SUBCLASSACDBENTITY#", L"AcDbEntity"},
    {L"#VEXO_ENTITYLINE_LAYER_GROUPCODE#", L"8"},
    {L"#VEXO_ENTITYLINE_LAYER#", L"0"},
    {L"#VEXO_ENTITYLINE_CLASSACDBLINE_GROUPCODE2#", L"100"},
    {L"#VEXO_ENTITYLINE_CLASSACDLINE#", L"AcDbLine"},
    {L"#VEXO_ENTITYLINE_STARTPNTX_GROUPCODE#", L"10"},
    {L"#VEXO_ENTITYLINE_STARTPNTX#", L"", filled},
    {L"#VEXO_ENTITYLINE_STARTPNTY_GROUPCODE#", L"20"},
    {L"#VEXO_ENTITYLINE_STARTPNTY#", L"", filled},
    {L"#VEXO_ENTITYLINE_STARTPNTZ_GROUPCODE#", L"30"},
    {L"#VEXO_ENTITYLINE_STARTPNTZ#", L"", filled},
    {L"#VEXO_ENTITYLINE_ENDPNTXGROUPCODE#", L"11"},
    {L"#VEXO_ENTITYLINE_ENDPNTX#", L"", filled},
    {L"#VEXO_ENTITYLINE_ENDPNTY_GROUPCODE#", L"21"},
    {L"#VEXO_ENTITYLINE_ENDPNTY#", L"", filled},
    {L"#VEXO_ENTITYLINE_ENDPNTZ_GROUPCODE#", L"31"},
    {L"#VEXO_ENTITYLINE_ENDPNTZ#", L"", filled},
};

} // namespace

TEST(DxfSectionLineEntity, HasTheseLines) {
    ASSERT_EQ(std::size(lines), 22u);
    expectTable(lineEntityTable, lines);
    expectLines(DxfSectionLineEntity(), lines);
}

TEST(DxfSectionLineEntity, StartsWithoutHandleAndPoints) {
    EXPECT_EQ(DxfSectionLineEntity().render(), L"0\nLINE\n"
                                               L"5\n\n"
                                               L"100\nAcDbEntity\n"
                                               L"8\n0\n"
                                               L"100\nAcDbLine\n"
                                               L"10\n\n20\n\n30\n\n"
                                               L"11\n\n21\n\n31\n\n");
}
