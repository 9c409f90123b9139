#include "reader/DxfText.h"

#include <gtest/gtest.h>

namespace rasterplan_tool {

TEST(DxfText, IsUtf8OrOfTheWesternEuropeanCodePage) {
    for (const char* text : {"", "plain", "Süd", "データ", "🏠"})
        EXPECT_EQ(unicodeText(text), text);
    EXPECT_EQ(unicodeText("S\xFC"
                          "d"),
              "Süd");
    EXPECT_EQ(unicodeText("\x80 \x9F \xE4\xF6"), "€ Ÿ äö");
    EXPECT_EQ(unicodeText("a\xC3"), "aÃ");               // cut after the first byte of two
    EXPECT_EQ(unicodeText("\xE3\x81 a"), "ã\xC2\x81 a"); // a byte that follows is missing
    EXPECT_EQ(unicodeText("\xBF"), "¿");
}

TEST(DxfText, EscapesStandForCharacters) {
    EXPECT_EQ(unicodeText("S\\U+00FCd \\U+7ACB\\U+0041"), "Süd 立A");
    EXPECT_EQ(unicodeText("\xE4 \\U+00e4"), "ä ä");
    for (const char* text : {"\\U+00", "\\U+00G1", "\\u+00E4", "U+00E4", "\\U+D800", "C:\\U"})
        EXPECT_EQ(unicodeText(text), text);
}

} // namespace rasterplan_tool
