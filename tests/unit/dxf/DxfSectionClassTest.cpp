#include "dxf/DxfSectionClass.h"

#include "ExpectedRecord.h"

#include <gtest/gtest.h>

#include <iterator>

using namespace rasterplan;
using namespace rasterplan::test;

namespace {

/// The record that the three classes start from, with seven instances.
constexpr ExpectedLine lines[] = {
    {L"#VEXO_CLASS_GROUPCODE#", L"0"},
    {L"#VEXO_CLASSNAME#", L"CLASS"},
    {L"#VEXO_GROUPCODE#", L"1"},
    {L"#VEXO_RECORDNAME#", L"", filled},
    {L"#VEXO_CNAME_GROUPCODE#", L"2"},
    {L"#VEXO_CNAME#", L"", filled},
    {L"#VEXO_APPNAME_GROUPCODE#", L"3"},
    {L"#VEXO_APPNAME#", L"ISM"},
    {L"#VEXO_PROXYCAP_GROUPCODE#", L"90"},
    {L"#VEXO_PROXYCAP_FLAG#", L"0", filled},
    {L"#VEXO_NUM_GROUPCODE#", L"91"},
    {L"#VEXO_NUM#", L"7", filled},
    {L"#VEXO_LOADFLAG_GROUPCODE#", L"280"},
    {L"#VEXO_LOADFLAG#", L"0"},
    {L"#VEXO_ENTFLAG_GROUPCODE#", L"281"},
    {L"#VEXO_ENTFLAG#", L"0", filled},
};

} // namespace

TEST(DxfSectionClass, HasTheseLines) {
    ASSERT_EQ(std::size(lines), 16u);
    expectTable(classTable, lines);
    expectLines(DxfSectionClass_INSTANCE(7), lines);
}

TEST(DxfSectionClass, ImageIsAnEntity) {
    EXPECT_EQ(DxfSectionClass_IMAGE(2).render(), L"0\nCLASS\n"
                                                 L"1\nIMAGE\n"
                                                 L"2\nAcDbRasterImage\n"
                                                 L"3\nISM\n"
                                                 L"90\n2175\n"
                                                 L"91\n2\n"
                                                 L"280\n0\n"
                                                 L"281\n1\n");
}

TEST(DxfSectionClass, ImageDefIsAnObject) {
    EXPECT_EQ(DxfSectionClass_IMAGEDEF(2).render(), L"0\nCLASS\n"
                                                    L"1\nIMAGEDEF\n"
                                                    L"2\nAcDbRasterImageDef\n"
                                                    L"3\nISM\n"
                                                    L"90\n0\n"
                                                    L"91\n2\n"
                                                    L"280\n0\n"
                                                    L"281\n0\n");
}

TEST(DxfSectionClass, ImageDefReactorIsAnObject) {
    EXPECT_EQ(DxfSectionClass_IMAGEDEF_REACTOR(2).render(), L"0\nCLASS\n"
                                                            L"1\nIMAGEDEF_REACTOR\n"
                                                            L"2\nAcDbRasterImageDefReactor\n"
                                                            L"3\nISM\n"
                                                            L"90\n1\n"
                                                            L"91\n2\n"
                                                            L"280\n0\n"
                                                            L"281\n0\n");
}

TEST(DxfSectionClass, EveryRecordCarriesTheNumberOfInstances) {
    const auto number = [](const DxfSection& section) { return section.getPlaceholderValue(L"#VEXO_NUM#"); };
    EXPECT_EQ(number(DxfSectionClass_IMAGE(0)), L"0");
    EXPECT_EQ(number(DxfSectionClass_IMAGEDEF(0)), L"0");
    EXPECT_EQ(number(DxfSectionClass_IMAGEDEF_REACTOR(0)), L"0");
    EXPECT_EQ(number(DxfSectionClass_IMAGE(1200)), L"1200");
    EXPECT_EQ(number(DxfSectionClass_INSTANCE(-1)), L"-1");
}
