#include "c/WideText.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using rasterplan::wideText;

namespace {

std::wstring fromUnits(std::vector<std::uint16_t> units) {
    units.push_back(0);
    return wideText(units.data());
}

// What a character beyond 16 bits is in wide ones.
const std::wstring house = L"\U0001F3E0";

} // namespace

TEST(CWideText, OfUtf8HasEveryLengthOfCharacters) {
    EXPECT_EQ(wideText(""), L"");
    EXPECT_EQ(wideText("a\x7F"), L"a\x7F");
    EXPECT_EQ(wideText("\xC2\x80\xDF\xBF"), L"\x80\x7FF");
    EXPECT_EQ(wideText("\xE0\xA0\x80\xEF\xBF\xBF"), L"\x800\xFFFF");
    EXPECT_EQ(wideText("\xF0\x9F\x8F\xA0"), house);
    EXPECT_EQ(wideText("\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"), L"\U00010000\U0010FFFF");
}

TEST(CWideText, OfUtf8KeepsSurrogatesThatStandAlone) {
    const std::optional<std::wstring> text = wideText("\xED\xA0\xBC.\xED\xBF\xBF");
    ASSERT_TRUE(text);
    ASSERT_EQ(text->size(), 3U);
    EXPECT_EQ(static_cast<unsigned>((*text)[0]), 0xD83CU);
    EXPECT_EQ(static_cast<unsigned>((*text)[2]), 0xDFFFU);
}

TEST(CWideText, RefusesWhatIsNoUtf8) {
    for (const char* const text :
         {"\x80", "a\xBF", "\xC2", "\xC2.", "\xC3\xC3", "\xE3\x83\xE3", "\xE3\x83", "\xE3\x83.", "\xE3.\x83",
          "\xF0\x9F\x8F", "\xC1\xBF", "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80",
          "\xF8\x88\x80\x80\x80", "\xFC\x84\x80\x80\x80\x80", "\xFE", "\xFF"})
        EXPECT_FALSE(wideText(text)) << testing::PrintToString(text);
}

TEST(CWideText, OfUtf16TakesPairsTogether) {
    EXPECT_EQ(fromUnits({}), L"");
    EXPECT_EQ(fromUnits({'a', 0xFC, 0x6771, 0xFFFF}), L"a\u00FC\u6771\xFFFF");
    EXPECT_EQ(fromUnits({0xD83C, 0xDFE0, 'b'}), house + L"b");
    EXPECT_EQ(fromUnits({0xD800, 0xDC00, 0xDBFF, 0xDFFF}), L"\U00010000\U0010FFFF");
}

TEST(CWideText, OfUtf16KeepsSurrogatesThatStandAlone) {
    for (const std::vector<std::uint16_t>& units : {std::vector<std::uint16_t>{0xD83C},
                                                    {0xDFE0},
                                                    {0xDFE0, 0xD83C},
                                                    {0xD83C, 'b'},
                                                    {0xD83C, 0xD83C, 'b'}}) {
        const std::wstring text = fromUnits(units);
        ASSERT_EQ(text.size(), units.size());
        for (std::size_t i = 0; i < units.size(); ++i)
            EXPECT_EQ(static_cast<unsigned>(text[i]), units[i]);
    }
}
