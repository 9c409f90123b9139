#include "template/TopLevelKey.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>

using namespace rasterplan;

namespace {

constexpr std::array<std::wstring_view, 13> placeholderLines{
    L"#VEXO_HEADER_EXTMIN#",          //
    L"#VEXO_HEADER_EXTMAX#",          //
    L"#VEXO_HEADER_HANDSEED#",        //
    L"#VEXO_HEADER_INSUNITS#",        //
    L"#VEXO_CLASS_IMAGEDEF#",         //
    L"#VEXO_CLASS_IMAGEDEFREACTOR#",  //
    L"#VEXO_CLASS_IMAGE#",            //
    L"#VEXO_TABLE_VPORT#",            //
    L"#VEXO_OBJECT_DICTIONARY#",      //
    L"#VEXO_OBJECT_IMAGEDEFREACTOR#", //
    L"#VEXO_OBJECT_IMAGEDEF#",        //
    L"#VEXO_ENTITY_LINE#",            //
    L"#VEXO_ENTITY_IMAGE#",           //
};

} // namespace

TEST(TopLevelKey, TextsAreThoseOfTheTemplate) {
    ASSERT_EQ(topLevelKeyTexts.size(), placeholderLines.size());
    for (std::size_t i = 0; i < placeholderLines.size(); ++i) {
        EXPECT_EQ(textOf(static_cast<TopLevelKey>(i)), placeholderLines[i]);
        EXPECT_EQ(findTopLevelKey(placeholderLines[i]), static_cast<TopLevelKey>(i));
    }
}

TEST(TopLevelKey, EnumeratorsStandForTheirTexts) {
    EXPECT_EQ(textOf(TopLevelKey::headerExtMin), L"#VEXO_HEADER_EXTMIN#");
    EXPECT_EQ(textOf(TopLevelKey::headerExtMax), L"#VEXO_HEADER_EXTMAX#");
    EXPECT_EQ(textOf(TopLevelKey::headerHandSeed), L"#VEXO_HEADER_HANDSEED#");
    EXPECT_EQ(textOf(TopLevelKey::headerInsUnits), L"#VEXO_HEADER_INSUNITS#");
    EXPECT_EQ(textOf(TopLevelKey::classImageDef), L"#VEXO_CLASS_IMAGEDEF#");
    EXPECT_EQ(textOf(TopLevelKey::classImageDefReactor), L"#VEXO_CLASS_IMAGEDEFREACTOR#");
    EXPECT_EQ(textOf(TopLevelKey::classImage), L"#VEXO_CLASS_IMAGE#");
    EXPECT_EQ(textOf(TopLevelKey::tableVPort), L"#VEXO_TABLE_VPORT#");
    EXPECT_EQ(textOf(TopLevelKey::objectDictionary), L"#VEXO_OBJECT_DICTIONARY#");
    EXPECT_EQ(textOf(TopLevelKey::objectImageDefReactor), L"#VEXO_OBJECT_IMAGEDEFREACTOR#");
    EXPECT_EQ(textOf(TopLevelKey::objectImageDef), L"#VEXO_OBJECT_IMAGEDEF#");
    EXPECT_EQ(textOf(TopLevelKey::entityLine), L"#VEXO_ENTITY_LINE#");
    EXPECT_EQ(textOf(TopLevelKey::entityImage), L"#VEXO_ENTITY_IMAGE#");
}

TEST(TopLevelKey, OnlyTheExactTextIsFound) {
    for (const std::wstring_view key : placeholderLines) {
        const std::wstring text(key);
        EXPECT_FALSE(findTopLevelKey(text + L"1"));
        EXPECT_FALSE(findTopLevelKey(text + L" "));
        EXPECT_FALSE(findTopLevelKey(L" " + text));
        EXPECT_FALSE(findTopLevelKey(text.substr(1)));
        EXPECT_FALSE(findTopLevelKey(text.substr(0, text.size() - 1)));
    }
    EXPECT_FALSE(findTopLevelKey(L""));
    EXPECT_FALSE(findTopLevelKey(L"#"));
    EXPECT_FALSE(findTopLevelKey(L"#vexo_entity_image#"));
    EXPECT_FALSE(findTopLevelKey(L"#VEXO_ENTITY_CIRCLE#"));
}
