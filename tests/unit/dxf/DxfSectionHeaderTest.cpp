#include "dxf/DxfSectionHeader.h"

#include "ExpectedRecord.h"

#include <gtest/gtest.h>

#include <iterator>
#include <string>

using namespace rasterplan;
using namespace rasterplan::test;

namespace {

constexpr ExpectedLine handleLines[] = {
    {L"#VEXO_VAR_GROUPCODE#", L"9"},
    {L"#VEXO_VAR_VARNAME#", L"", filled},
    {L"#VEXO_VAR_HANDLEGROUPCODE#", L"5"},
    {L"#VEXO_VAR_HANDLEVALUE#", L"", filled},
};

constexpr ExpectedLine pointLines[] = {
    {L"#VEXO_EXTVAR_GROUPCODE#", L"9"},   {L"#VEXO_EXTVAR_VARNAME#", L"", filled},
    {L"#VEXO_EXTVARX_GROUPCODE#", L"10"}, {L"#VEXO_EXTVARX_VALUE#", L"", filled},
    {L"#VEXO_EXTVARY_GROUPCODE#", L"20"}, {L"#VEXO_EXTVARY_VALUE#", L"", filled},
    {L"#VEXO_EXTVARZ_GROUPCODE#", L"30"}, {L"#VEXO_EXTVARZ_VALUE#", L"", filled},
};

constexpr ExpectedLine unitLines[] = {
    {L"#VEXO_INSUNIT_VAR_GROUPCODE#", L"9"},
    {L"#VEXO_INSUNIT_VAR_NAME#", L"$INSUNITS"},
    {L"#VEXO_INSUNIT_UNIT_GROUPCODE#", L"70"},
    {L"#VEXO_INSUNIT_UNIT_VALUE#", L"6", filled},
};

} // namespace

TEST(DxfSectionHeader, VariableWithAHandleHasTheseLines) {
    ASSERT_EQ(std::size(handleLines), 4u);
    expectTable(headerVarTable, handleLines);
    expectLines(DxfSectionHeaderVar(), handleLines);
}

TEST(DxfSectionHeader, VariableWithAPointHasTheseLines) {
    ASSERT_EQ(std::size(pointLines), 8u);
    expectTable(headerVarBoxTable, pointLines);
    expectLines(DxfSectionHeaderVarBox(), pointLines);
}

TEST(DxfSectionHeader, UnitHasTheseLines) {
    ASSERT_EQ(std::size(unitLines), 4u);
    expectTable(headerInsUnitsTable, unitLines);
    expectLines(DxfHeaderSection_INSUNITS(), unitLines);
}

TEST(DxfSectionHeader, ExtMinStartsAboveEveryCoordinate) {
    const std::wstring largest = L"179769313486231570814527423731704356798070567525844996598917"
                                 L"476803157260780028538760589558632766878";
    EXPECT_EQ(DxfHeaderSection_EXTMIN().render(),
              L"9\n$EXTMIN\n10\n" + largest + L"\n20\n" + largest + L"\n30\n" + largest + L"\n");
    for (const wchar_t* const key :
         {L"#VEXO_EXTVARX_VALUE#", L"#VEXO_EXTVARY_VALUE#", L"#VEXO_EXTVARZ_VALUE#"}) {
        EXPECT_GT(DxfHeaderSection_EXTMIN().getPlaceholderNumber(key), 1e90);
        EXPECT_EQ(DxfHeaderSection_EXTMIN().getPlaceholderNumber(headerVarBoxRows[key]),
                  DxfHeaderSection_EXTMIN().getPlaceholderNumber(key));
    }
}

TEST(DxfSectionHeader, ExtMaxStartsAtZero) {
    EXPECT_EQ(DxfHeaderSection_EXTMAX().render(), L"9\n$EXTMAX\n"
                                                  L"10\n0.00000000000000000\n"
                                                  L"20\n0.00000000000000000\n"
                                                  L"30\n0.00000000000000000\n");
}

TEST(DxfSectionHeader, HandSeedStartsWithoutAHandle) {
    EXPECT_EQ(DxfHeaderSection_HANDSEED().render(), L"9\n$HANDSEED\n5\n\n");
}

TEST(DxfSectionHeader, UnitStartsAsMetres) {
    EXPECT_EQ(DxfHeaderSection_INSUNITS().render(), L"9\n$INSUNITS\n70\n6\n");
}
