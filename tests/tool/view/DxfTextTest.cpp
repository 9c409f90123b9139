#include "view/DxfText.h"

#include <gtest/gtest.h>

namespace rasterplan_tool {

TEST(DxfText, StandsAsItIsWithoutEscapes) {
    EXPECT_EQ(textFromDxf("bilder\\süd.png"), "bilder\\süd.png");
    EXPECT_EQ(textFromDxf(""), "");
}

TEST(DxfText, EscapesAreCharacters) {
    EXPECT_EQ(textFromDxf("a\\U+0041b"), "aAb");
    EXPECT_EQ(textFromDxf("s\\U+00FCd.png"), "süd.png");
    EXPECT_EQ(textFromDxf("\\U+56f3\\U+9762"), "図面");
    EXPECT_EQ(textFromDxf("\\U+D83C\\U+DFE0"), "\xF0\x9F\x8F\xA0");
}

TEST(DxfText, WhatIsNoEscapeStays) {
    for (const char* text : {"\\U+", "\\U+00", "\\U+00G0", "\\U+-001", "\\u+0041", "\\U+D83C",
                             "\\U+D83C\\U+0041x", "\\U+DFE0"}) {
        const bool endsInEscape = std::string_view(text).ends_with("0041x");
        EXPECT_EQ(textFromDxf(text), endsInEscape ? "\\U+D83CAx" : text);
    }
}

} // namespace rasterplan_tool
