#include "template/SlotArray.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <stdexcept>
#include <string>
#include <utility>

using namespace rasterplan;
using Kind = SectionValue::Kind;

namespace {

/// A text, in whatever way it is kept.
std::wstring textIn(const SlotArray& values, std::size_t slot) {
    const SectionValue value = values.get(slot);
    EXPECT_TRUE(value.kind() == Kind::text || value.kind() == Kind::plainText);
    if (value.kind() == Kind::text)
        return std::wstring(value.text());
    return std::wstring(value.plainText().begin(), value.plainText().end());
}

} // namespace

TEST(SlotArray, StartsUnset) {
    const SlotArray values(3);
    EXPECT_EQ(values.count(), 3u);
    for (std::size_t slot = 0; slot < 3; ++slot)
        EXPECT_EQ(values.get(slot).kind(), Kind::unset);
    EXPECT_EQ(SlotArray().count(), 0u);
}

TEST(SlotArray, KeepsEveryKindOfValue) {
    SlotArray values(5);
    values.set(0, 2.5);
    values.set(1, -7);
    values.set(2, Handle{0x7E});
    values.set(3, L"Plan");
    ASSERT_EQ(values.get(0).kind(), Kind::real);
    EXPECT_EQ(values.get(0).real(), 2.5);
    ASSERT_EQ(values.get(1).kind(), Kind::integer);
    EXPECT_EQ(values.get(1).integer(), -7);
    ASSERT_EQ(values.get(2).kind(), Kind::handle);
    EXPECT_EQ(values.get(2).handle(), Handle{0x7E});
    EXPECT_EQ(textIn(values, 3), L"Plan");
    EXPECT_EQ(values.get(4).kind(), Kind::unset);
}

TEST(SlotArray, KeepsTheLimitsOfNumbers) {
    SlotArray values(4);
    values.set(0, std::numeric_limits<std::int32_t>::min());
    values.set(1, std::numeric_limits<std::int32_t>::max());
    values.set(2, -0.0);
    values.set(3, std::numeric_limits<double>::denorm_min());
    EXPECT_EQ(values.get(0).integer(), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(values.get(1).integer(), std::numeric_limits<std::int32_t>::max());
    EXPECT_TRUE(std::signbit(values.get(2).real()));
    EXPECT_EQ(values.get(3).real(), std::numeric_limits<double>::denorm_min());
}

TEST(SlotArray, CopiesTexts) {
    SlotArray values(2);
    std::wstring text = L"before";
    values.set(0, std::wstring_view(text));
    text = L"after!";
    EXPECT_EQ(textIn(values, 0), L"before");
    values.set(1, std::wstring_view(L"a\0b", 3));
    EXPECT_EQ(textIn(values, 1), std::wstring_view(L"a\0b", 3));
    values.set(1, L"");
    EXPECT_EQ(textIn(values, 1), L"");
}

TEST(SlotArray, KeepsPrintableAsciiInOneByteEach) {
    SlotArray values(6);
    values.set(0, L"C:\\Pl\x00E4ne\\a.png");
    values.set(1, L"C:\\plans ~ !\\a.png");
    values.set(2, L"two\nlines");
    values.set(3, L"\x7F");
    values.set(4, L"\x1F");
    values.set(5, L"carriage\rreturn");
    EXPECT_EQ(values.get(0).kind(), Kind::text);
    ASSERT_EQ(values.get(1).kind(), Kind::plainText);
    EXPECT_EQ(values.get(1).plainText(), "C:\\plans ~ !\\a.png");
    for (std::size_t slot = 2; slot < 6; ++slot)
        EXPECT_EQ(values.get(slot).kind(), Kind::text) << slot;
    EXPECT_EQ(textIn(values, 0), L"C:\\Pl\x00E4ne\\a.png");
}

TEST(SlotArray, TextIsSetFromItself) {
    SlotArray values(2);
    values.set(0, L"a n\x00E4me that is longer than any small buffer");
    values.set(0, values.get(0).text().substr(2, 4));
    EXPECT_EQ(textIn(values, 0), L"n\x00E4me");
    values.set(1, L"a plain name that is longer than any small buffer");
    for (int i = 0; i < 100; ++i)
        values.set(1, values.get(1));
    EXPECT_EQ(textIn(values, 1), L"a plain name that is longer than any small buffer");
}

TEST(SlotArray, ValueIsReplacedByAnotherKind) {
    SlotArray values(1);
    values.set(0, L"text");
    values.set(0, 1.5);
    EXPECT_EQ(values.get(0).real(), 1.5);
    values.set(0, L"again");
    EXPECT_EQ(textIn(values, 0), L"again");
    values.set(0, SectionValue());
    EXPECT_EQ(values.get(0).kind(), Kind::unset);
}

TEST(SlotArray, GrowsByUnsetValues) {
    SlotArray values(1);
    values.grow(1);
    EXPECT_EQ(values.count(), 2u);
    values.set(0, L"first");
    values.grow(1000);
    EXPECT_EQ(values.count(), 1002u);
    EXPECT_EQ(values.get(1001).kind(), Kind::unset);
    values.set(1001, L"last");
    EXPECT_EQ(textIn(values, 0), L"first");
    EXPECT_EQ(values.get(1).kind(), Kind::unset);
    EXPECT_EQ(textIn(values, 1001), L"last");
}

TEST(SlotArray, IsMovedWithItsValues) {
    SlotArray values(2);
    values.set(1, L"a text that no small buffer holds, moved");
    SlotArray moved(std::move(values));
    EXPECT_EQ(values.count(), 0u); // NOLINT(bugprone-use-after-move): it is left without values
    EXPECT_EQ(moved.count(), 2u);
    EXPECT_EQ(textIn(moved, 1), L"a text that no small buffer holds, moved");

    SlotArray assigned(5);
    assigned.set(4, L"gone");
    assigned = std::move(moved);
    EXPECT_EQ(assigned.count(), 2u);
    EXPECT_EQ(assigned.get(0).kind(), Kind::unset);
    EXPECT_EQ(textIn(assigned, 1), L"a text that no small buffer holds, moved");
}

TEST(SlotArray, TextTooLongForItsPlaceIsRefused) {
    SlotArray values(1);
    values.set(0, L"before");
    const std::wstring longest((std::size_t{1} << 24) - 1, L'x');
    EXPECT_THROW(values.set(0, std::wstring_view(longest + L'x')), std::length_error);
    EXPECT_EQ(textIn(values, 0), L"before");
    values.set(0, std::wstring_view(longest));
    EXPECT_EQ(textIn(values, 0), longest);
}
