#include "base/Text.h"

#include <gtest/gtest.h>

#include <clocale>
#include <limits>
#include <locale>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>

using ZelkBase::Text;

namespace {

// Numbers as in "1.234,5".
class CommaPoint : public std::numpunct<wchar_t> {
    wchar_t do_decimal_point() const override { return L','; }
    wchar_t do_thousands_sep() const override { return L'.'; }
    std::string do_grouping() const override { return "\3"; }
};

} // namespace

TEST(Text, NullIsTheEmptyText) {
    const Text text(nullptr);
    EXPECT_EQ(text.length(), 0u);
    EXPECT_TRUE(text.empty());
    ASSERT_NE(text.c_str(), nullptr);
    EXPECT_EQ(text.c_str()[0], L'\0');
    EXPECT_EQ(text, Text());
}

TEST(Text, NumberIsWrittenInDecimal) {
    EXPECT_EQ(Text(85), Text(L"85"));
    EXPECT_EQ(Text(0), Text(L"0"));
    EXPECT_EQ(Text(std::numeric_limits<int>::min()), Text(L"-2147483648"));
}

TEST(Text, NothingTurnsIntoANumberByItself) {
    EXPECT_FALSE((std::is_convertible_v<int, Text>));
    EXPECT_FALSE((std::is_convertible_v<char, Text>));
    EXPECT_FALSE((std::is_convertible_v<wchar_t, Text>));
    EXPECT_FALSE((std::is_convertible_v<bool, Text>));
}

TEST(Text, CopiesHaveCharactersOfTheirOwn) {
    Text original(L"plan");
    const Text copy(original);
    Text assigned;
    assigned = original;
    original += L" 1";
    EXPECT_EQ(original, Text(L"plan 1"));
    EXPECT_EQ(copy, Text(L"plan"));
    EXPECT_EQ(assigned, Text(L"plan"));
    EXPECT_NE(copy.c_str(), assigned.c_str());
}

TEST(Text, MovingEmptiesTheSource) {
    Text source(L"a text that is too long for any buffer inside a string object");
    source.utf8();
    Text target(std::move(source));
    EXPECT_EQ(target.length(), 61u);
    EXPECT_EQ(source.utf8(), ""); // NOLINT(bugprone-use-after-move)
    source = std::move(target);
    EXPECT_EQ(source.utf8().size(), 61u);
    EXPECT_EQ(target.utf8(), ""); // NOLINT(bugprone-use-after-move)
}

TEST(Text, AppendingPutsTheOtherTextBehind) {
    Text text(L"one");
    text.append(L" two").append(Text());
    EXPECT_EQ(text, Text(L"one two"));
    text += text;
    EXPECT_EQ(text, Text(L"one twoone two"));
    EXPECT_EQ(text + Text(3), Text(L"one twoone two3"));
    EXPECT_EQ(text.length(), 14u);
}

TEST(Text, KeepsEmbeddedZeros) {
    const Text text(std::wstring_view(L"a\0b", 3));
    EXPECT_EQ(text.length(), 3u);
    EXPECT_EQ(text.view()[2], L'b');
}

TEST(Text, ConvertedFormFollowsTheText) {
    Text text(L"\u00fcber");
    EXPECT_EQ(text.utf8(), "\xC3\xBC"
                           "ber");
    text += L" \u20ac";
    EXPECT_EQ(text.utf8(), "\xC3\xBC"
                           "ber \xE2\x82\xAC");
    text = Text(L"x");
    EXPECT_EQ(text.utf8(), "x");
    EXPECT_EQ(Text().utf8(), "");
}

TEST(Text, ConvertedFormIsKept) {
    const Text text(L"a text that is too long for any buffer inside a string object");
    const char* first = text.utf8().data();
    EXPECT_EQ(text.utf8().data(), first);
}

TEST(Text, AssignmentToItselfKeepsTheTextAndDropsTheConvertedForm) {
    Text text(L"plan");
    const std::string& converted = text.utf8();
    EXPECT_EQ(converted, "plan");
    const Text& same = text;
    text = same;
    EXPECT_EQ(converted, "");
    EXPECT_EQ(text, Text(L"plan"));
    EXPECT_EQ(text.utf8(), "plan");
}

TEST(Text, WhatIsNoCharacterDoesNotConvert) {
    if (sizeof(wchar_t) == 2)
        GTEST_SKIP() << "every wide character converts here";
    const Text text(std::wstring(1, static_cast<wchar_t>(0x110000)));
    EXPECT_THROW(text.utf8(), std::range_error);
}

TEST(Text, IntegersAreRecognised) {
    for (const wchar_t* text : {L"7", L"0", L"00", L"-7", L"+7", L" \t7", L"-0", L"2147483647",
                                L"-2147483648", L"1.0", L"0.0", L"1e0", L"7 m"})
        EXPECT_TRUE(Text(text).isInteger()) << Text(text).utf8();
}

TEST(Text, WhatReadsDifferentlyIsNoInteger) {
    for (const wchar_t* text : {L"x",
                                L"0.5",
                                L"",
                                L" ",
                                L"-",
                                L"7.5",
                                L"1e2",
                                L"0x10",
                                L"2147483648",
                                L"-2147483649",
                                L"99999999999999999999",
                                L"1e999",
                                L"1e-400",
                                L"nan",
                                L"NaN",
                                L"-nan",
                                L"inf",
                                L"infinity",
                                L"x0",
                                L".0"})
        EXPECT_FALSE(Text(text).isInteger()) << Text(text).utf8();
}

TEST(Text, IntegerTestDoesNotFollowTheLocale) {
    const std::string cBefore = std::setlocale(LC_ALL, nullptr);
    const std::locale before = std::locale::global(std::locale(std::locale(), new CommaPoint));
    for (const char* name : {"de_DE.UTF-8", "German_Germany.1252"})
        if (std::setlocale(LC_ALL, name)) // The C library follows only where such a locale is installed.
            break;
    const bool fraction = Text(L"7.5").isInteger();
    const bool comma = Text(L"7,5").isInteger();
    const Text number(1234567);
    std::locale::global(before);
    std::setlocale(LC_ALL, cBefore.c_str());

    EXPECT_FALSE(fraction);
    EXPECT_TRUE(comma);
    EXPECT_EQ(number, Text(L"1234567"));
}
