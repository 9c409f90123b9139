#include "template/TopLevelKey.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

using namespace rasterplan;
using enum TopLevelKey;

namespace {

const std::map<std::string, TopLevelKey> placeholderLines{
    {"#VEXO_HEADER_EXTMIN#", HeaderExtMin},
    {"#VEXO_HEADER_EXTMAX#", HeaderExtMax},
    {"#VEXO_HEADER_HANDSEED#", HeaderHandSeed},
    {"#VEXO_HEADER_INSUNITS#", HeaderInsUnits},
    {"#VEXO_CLASS_IMAGEDEF#", ClassImageDef},
    {"#VEXO_CLASS_IMAGEDEFREACTOR#", ClassImageDefReactor},
    {"#VEXO_CLASS_IMAGE#", ClassImage},
    {"#VEXO_TABLE_VPORT#", TableVPort},
    {"#VEXO_OBJECT_DICTIONARY#", ObjectDictionary},
    {"#VEXO_OBJECT_IMAGEDEFREACTOR#", ObjectImageDefReactor},
    {"#VEXO_OBJECT_IMAGEDEF#", ObjectImageDef},
    {"#VEXO_ENTITY_LINE#", EntityLine},
    {"#VEXO_ENTITY_IMAGE#", EntityImage},
};

} // namespace

TEST(TopLevelKey, IsFoundByItsText) {
    EXPECT_EQ(topLevelKeyTexts.size(), placeholderLines.size());
    for (const auto& [text, key] : placeholderLines)
        EXPECT_EQ(findTopLevelKey(text), key) << text;
}

TEST(TopLevelKey, OnlyTheExactTextIsFound) {
    for (const auto& [text, key] : placeholderLines)
        for (const std::string& other :
             {text + '1', text + ' ', ' ' + text, text.substr(1), text.substr(0, text.size() - 1)})
            EXPECT_FALSE(findTopLevelKey(other)) << other;
    for (const char* const other : {"", "#", "#vexo_entity_image#", "#VEXO_ENTITY_CIRCLE#"})
        EXPECT_FALSE(findTopLevelKey(other)) << other;
}

TEST(TopLevelKey, NumberStandsBehindTheClosingSign) {
    EXPECT_EQ(makeInstanceKey(EntityImage, 1), "#VEXO_ENTITY_IMAGE#1");
    EXPECT_EQ(makeInstanceKey(ObjectImageDef, 120), "#VEXO_OBJECT_IMAGEDEF#120");
    EXPECT_EQ(makeInstanceKey(EntityLine, 2147483647), "#VEXO_ENTITY_LINE#2147483647");
}
