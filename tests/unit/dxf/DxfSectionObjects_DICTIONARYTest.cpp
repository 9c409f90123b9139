#include "dxf/DxfSectionObjects_DICTIONARY.h"

#include "ExpectedRecord.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <iterator>
#include <string>
#include <vector>

using namespace rasterplan;
using namespace rasterplan::test;

namespace {

constexpr ExpectedLine fixedLines[] = {
    {L"#VEXO_OBJDICT_GROUPCODE#", L"0"},
    {L"#VEXO_OBJDICT#", L"DICTIONARY"},
    {L"#VEXO_OBJ_DICTHANDLE_GROUPCODE#", L"5"},
    {L"#VEXO_OBJ_DICTHANDLE#", L"5A"},
    {L"#VEXO_OBJ_DICTREACTORSTARTGROUPCODE#", L"102"},
    {L"#VEXO_OBJ_DICTREACTORSTART#", L"{ACAD_REACTORS"},
    {L"#VEXO_OBJ_DICTREACTORHANDLE_GROUPCODE#", L"330"},
    {L"#VEXO_OBJ_DICTREACTORHANDLE#", L"9"},
    {L"#VEXO_OBJ_DICTREACTOREND_GROUPCODE#", L"102"},
    {L"#VEXO_OBJ_DICTREACTOREND#", L"}"},
    {L"#VEXO_OBJ_DICTREACTORHANDLE2_GROUPCODE#", L"330"},
    {L"#VEXO_OBJ_DICTREACTORHANDLE2#", L"9"},
    {L"#VEXO_OBJ_SUBCLASSACDBDICT_GROUPCODESTR#", L"100"},
    {L"#VEXO_OBJ_SUBCLASSACDBDICT#", L"AcDbDictionary"},
    {L"#VEXO_OBJ_CLONEDICT_GROUPCODE#", L"281"},
    {L"#VEXO_OBJ_CLONEDICT#", L"1"},
};

/// Each entry; its keys carry its number.
constexpr ExpectedLine entryLines[] = {
    {L"#VEXO_OBJ_NAMEOBJ_GROUPCODE#", L"3"},
    {L"#VEXO_OBJ_NAMEOBJ#", L"", filled},
    {L"#VEXO_OBJ_HANDLEOBJ_GROUPCODE#", L"350"},
    {L"#VEXO_OBJ_HANDLEOBJ#", L"", filled},
};

/// The lines that a dictionary of so many images should have. `keys` keeps the numbered keys alive.
std::vector<ExpectedLine> linesFor(int images, std::deque<std::wstring>& keys) {
    std::vector<ExpectedLine> lines(std::begin(fixedLines), std::end(fixedLines));
    for (int i = 1; i <= images; ++i)
        for (const ExpectedLine& line : entryLines) {
            keys.push_back(std::wstring(line.key) + std::to_wstring(i));
            lines.push_back({keys.back(), line.value, line.isFilled});
        }
    return lines;
}

} // namespace

TEST(DxfSectionObjects_DICTIONARY, HasTheseLines) {
    expectTable(imageDictionaryTable, fixedLines);
    ASSERT_EQ(imageDictionaryTable.entry, &imageDictionaryEntryTable);
    expectTable(imageDictionaryEntryTable, entryLines);
    for (const int images : {0, 1, 3, 12}) {
        std::deque<std::wstring> keys;
        expectLines(DxfSectionObjects_DICTIONARY(images), linesFor(images, keys));
    }
}

TEST(DxfSectionObjects_DICTIONARY, OfThreeImagesEndsWithTheThirdEntry) {
    DxfSectionObjects_DICTIONARY dictionary(3);
    const std::wstring text = dictionary.render();
    EXPECT_EQ(std::count(text.begin(), text.end(), L'\n'), 16 + 12);
    EXPECT_TRUE(dictionary.setPlaceholderValue(L"#VEXO_OBJ_HANDLEOBJ#3", L"the last line"));
    EXPECT_TRUE(dictionary.render().ends_with(L"\n350\nthe last line\n"));
    EXPECT_FALSE(dictionary.setPlaceholderValue(L"#VEXO_OBJ_HANDLEOBJ#4", L""));
    EXPECT_FALSE(dictionary.setPlaceholderValue(L"#VEXO_OBJ_HANDLEOBJ#", L""));
}

TEST(DxfSectionObjects_DICTIONARY, WithoutImagesHasOnlyItsFixedLines) {
    const std::wstring fixedText = L"0\nDICTIONARY\n"
                                   L"5\n5A\n"
                                   L"102\n{ACAD_REACTORS\n330\n9\n102\n}\n"
                                   L"330\n9\n"
                                   L"100\nAcDbDictionary\n"
                                   L"281\n1\n";
    EXPECT_EQ(DxfSectionObjects_DICTIONARY(0).render(), fixedText);
    EXPECT_EQ(DxfSectionObjects_DICTIONARY(-3).render(), fixedText);
    EXPECT_EQ(DxfSectionObjects_DICTIONARY(1).render(), fixedText + L"3\n\n350\n\n");
}
