#include "base/Suggestion.h"

#include <gtest/gtest.h>

#include <array>

namespace rasterplan_tool {
namespace {

std::string suggestionFor(std::string_view word) {
    constexpr std::array<std::string_view, 4> words{"leftTop", "leftBottom", "up", "pixelsPerUnit"};
    return suggestionText(word, words);
}

} // namespace

TEST(Suggestion, WordsThatResembleOneAreGuessed) {
    EXPECT_EQ(suggestionFor("leftop"), " (did you mean \"leftTop\"?)");
    EXPECT_EQ(suggestionFor("LEFTBOTTOM"), " (did you mean \"leftBottom\"?)");
    EXPECT_EQ(suggestionFor("pixelPerUnits"), " (did you mean \"pixelsPerUnit\"?)");
    EXPECT_EQ(suggestionFor("upp"), " (did you mean \"up\"?)");
}

TEST(Suggestion, OtherWordsAreNot) {
    EXPECT_EQ(suggestionFor(""), "");
    EXPECT_EQ(suggestionFor("right"), "");
    EXPECT_EQ(suggestionFor("xy"), "");
    EXPECT_EQ(suggestionFor(std::string(100, 'u')), "");
}

} // namespace rasterplan_tool
