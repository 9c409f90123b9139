#include "base/Utf8.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <stdexcept>
#include <string>

namespace {

using ZelkBase::toUtf8;

constexpr bool hasWideCodePoints = sizeof(wchar_t) > 2;

// The text of one wide character of this code.
std::wstring character(std::uint32_t code) {
    return std::wstring(1, static_cast<wchar_t>(code));
}

constexpr bool encodesAtCompileTime() {
    char bytes[ZelkBase::utf8Capacity] = {};
    return ZelkBase::encodeUtf8(L'\u00E4', bytes) == bytes + 2 && bytes[0] == '\xC3' && bytes[1] == '\xA4';
}
static_assert(encodesAtCompileTime());

} // namespace

TEST(Utf8, LeavesAsciiAsItIs) {
    EXPECT_EQ(toUtf8(L""), "");
    EXPECT_EQ(toUtf8(L"D:\\site\\plan 1.png\n"), "D:\\site\\plan 1.png\n");
    EXPECT_EQ(toUtf8(character(0x7F)), "\x7F");
    EXPECT_EQ(toUtf8(std::wstring(L"a\0b", 3)), std::string("a\0b", 3));
}

TEST(Utf8, WritesTwoAndThreeBytes) {
    EXPECT_EQ(toUtf8(character(0x80)), "\xC2\x80");
    EXPECT_EQ(toUtf8(L"\u00E4"), "\xC3\xA4");
    EXPECT_EQ(toUtf8(character(0x7FF)), "\xDF\xBF");
    EXPECT_EQ(toUtf8(character(0x800)), "\xE0\xA0\x80");
    EXPECT_EQ(toUtf8(L"\u20AC"), "\xE2\x82\xAC");
    EXPECT_EQ(toUtf8(character(0xFFFF)), "\xEF\xBF\xBF");
}

TEST(Utf8, WritesNoByteOrderMarkOfItsOwn) {
    EXPECT_EQ(toUtf8(character(0xFEFF)), "\xEF\xBB\xBF");
}

TEST(Utf8, EncodesEverySurrogateByItself) {
    EXPECT_EQ(toUtf8(character(0xD800)), "\xED\xA0\x80");
    EXPECT_EQ(toUtf8(character(0xDFFF)), "\xED\xBF\xBF");
    EXPECT_EQ(toUtf8(character(0xD83D) + character(0xDE00)), "\xED\xA0\xBD\xED\xB8\x80");
}

TEST(Utf8, WritesFourBytesUpToTheLastCodePoint) {
    if (!hasWideCodePoints)
        GTEST_SKIP() << "wide characters have 16 bits here";
    EXPECT_EQ(toUtf8(character(0x10000)), "\xF0\x90\x80\x80");
    EXPECT_EQ(toUtf8(character(0x1F600)), "\xF0\x9F\x98\x80");
    EXPECT_EQ(toUtf8(character(0x10FFFF)), "\xF4\x8F\xBF\xBF");
}

TEST(Utf8, RefusesWhatIsNoCodePoint) {
    if (!hasWideCodePoints)
        GTEST_SKIP() << "wide characters have 16 bits here";
    EXPECT_THROW(toUtf8(character(0x110000)), std::range_error);
    EXPECT_THROW(toUtf8(character(0x7FFFFFFF)), std::range_error);
    EXPECT_THROW(toUtf8(character(0xFFFFFFFF)), std::range_error);
}

TEST(Utf8, AppendsBehindWhatIsThere) {
    std::string bytes = "path: ";
    ZelkBase::appendUtf8(bytes, L"T\u00FCr.png");
    EXPECT_EQ(bytes, "path: T\xC3\xBCr.png");
}
