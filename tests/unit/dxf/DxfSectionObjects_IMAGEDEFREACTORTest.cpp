#include "dxf/DxfSectionObjects_IMAGEDEFREACTOR.h"

#include "ExpectedRecord.h"

#include <gtest/gtest.h>

#include <iterator>

using namespace rasterplan;
using namespace rasterplan::test;

namespace {

constexpr ExpectedLine lines[] = {
    {L"#VEXO_OBJ_IMAGEDEFREACTOR_GROUPCODE#", L"0"},
    {L"#VEXO_OBJIMAGEDEFREACTOR#", L"IMAGEDEF_REACTOR"},
    {L"#VEXO_OBJIMAGEDEFREACTORHANDLE_GROUPCODE#", L"5"},
    {L"#VEXO_OBJIMAGEDEFREACTORHANDLE#", L"5B", filled},
    {L"#VEXO_OBJ_IMAGEDEFREACTOR2IMAGEHANDLEGROUPCODE#", L"330"},
    {L"#VEXO_OBJ_IMAGEDEFREACTOR2IMAGEHANDLE#", L"58", filled},
    {L"#VEXO_OBJ_SUBCLASSACDBRASTERIMGDEFREACTOR_GROUPCODESTR#", L"100"},
    {L"#VEXO_OBJ_SUBCLASSACDBRASTERIMGDEFREACTOR#", L"AcDbRasterImageDefReactor"},
    {L"#VEXO_OBJ_CLASSVERSIONIMAGEDEFREACTOR_GROUPCODE#", L"90"},
    {L"#VEXO_OBJ_CLASSVERSIONIMAGEDEFREACTOR#", L"2"},
    {L"#VEXO_OBJ_IMAGEDEFREACTOR2IMAGEHANDLEGROUPCODE2#", L"330"},
    {L"#VEXO_OBJ_IMAGEDEFREACTOR2IMAGEHANDLE2#", L"58", filled},
};

} // namespace

TEST(DxfSectionObjects_IMAGEDEFREACTOR, HasTheseLines) {
    ASSERT_EQ(std::size(lines), 12u);
    expectTable(imageDefReactorTable, lines);
    expectLines(DxfSectionObjects_IMAGEDEFREACTOR(), lines);
}

TEST(DxfSectionObjects_IMAGEDEFREACTOR, StartsWithDefaultHandles) {
    EXPECT_EQ(DxfSectionObjects_IMAGEDEFREACTOR().render(), L"0\nIMAGEDEF_REACTOR\n"
                                                            L"5\n5B\n"
                                                            L"330\n58\n"
                                                            L"100\nAcDbRasterImageDefReactor\n"
                                                            L"90\n2\n"
                                                            L"330\n58\n");
}
