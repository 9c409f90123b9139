#include "base/VisibleText.h"

#include "base/Console.h"

#include <gtest/gtest.h>

#include <sstream>

namespace rasterplan_tool {

TEST(VisibleText, OrdinaryTextStaysAsItIs) {
    for (const char* text : {"", "a b", "D:\\bilder\\süd.png", "日本 😀", "\u00A0\u200B\uFEFF", "~"}) {
        EXPECT_EQ(visible(text), text);
        EXPECT_FALSE(breaksLines(text)) << text;
    }
}

TEST(VisibleText, ControlCharactersAreShownAndBreakLines) {
    const struct {
        std::string_view text;
        const char* shown;
    } cases[] = {
        {"a\x1B[2Jb", "a\\x1b[2Jb"}, {"a\nb", "a\\nb"},     {"\r\t", "\\r\\t"},    {{"\0", 1}, "\\x00"},
        {"\x7F", "\\x7f"},           {"\u0080", "\\u0080"}, {"\u009B", "\\u009b"}, {"\u0085", "\\u0085"},
        {"\u2028", "\\u2028"},       {"\u2029", "\\u2029"}, {"ü\x1F", "ü\\x1f"},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(visible(each.text), each.shown);
        EXPECT_TRUE(breaksLines(each.text)) << each.shown;
    }
}

TEST(VisibleText, TurnsOfTheDirectionAreShownButBreakNoLine) {
    for (const auto& [text, shown] : {std::pair("gnp.\u202Eexe", "gnp.\\u202eexe"),
                                      {"\u200F", "\\u200f"},
                                      {"\u2066", "\\u2066"},
                                      {"\u061C", "\\u061c"}}) {
        EXPECT_EQ(visible(text), shown);
        EXPECT_FALSE(breaksLines(text));
    }
}

TEST(VisibleText, BytesThatAreNoTextAreShown) {
    const struct {
        const char* text;
        const char* shown;
    } cases[] = {
        {"a\xFF", "a\\xff"}, // never in UTF-8
        {"\x9B"
         "2J",
         "\\x9b2J"},                                  // a control character of eight bits
        {"\xC3", "\\xc3"},                            // cut
        {"\xC3z", "\\xc3z"},                          // interrupted
        {"\xC0\x8A", "\\xc0\\x8a"},                   // a line feed in a longer form
        {"\xED\xA0\x80", "\\xed\\xa0\\x80"},          // a surrogate
        {"\xF4\x90\x80\x80", "\\xf4\\x90\\x80\\x80"}, // beyond Unicode
        {"\xE0\x80\x80", "\\xe0\\x80\\x80"},
        {"\xF0\x80\x80\x80", "\\xf0\\x80\\x80\\x80"},
    };
    for (const auto& each : cases)
        EXPECT_EQ(visible(each.text), each.shown);
    EXPECT_EQ(visible("\U0010FFFF"), "\U0010FFFF");
}

TEST(Console, ShowsWhatWouldSteerATerminal) {
    std::ostringstream out;
    std::ostringstream err;
    Console console{out, err};
    console.error("one\x1B\ntwo");
    console.warning("three\r");
    EXPECT_EQ(err.str(),
              "rasterplan: error: one\\x1b\nrasterplan: error: two\nrasterplan: warning: three\\r\n");
    EXPECT_EQ(out.str(), "");
}

} // namespace rasterplan_tool
