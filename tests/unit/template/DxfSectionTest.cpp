#include "template/DxfSection.h"

#include "support/WrittenBytes.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <string>

using namespace rasterplan;
using namespace rasterplan::test;

namespace {

// A record with every kind of value.
struct Sample : DxfSection<Sample> {
    Handle handle{0x7E};
    std::int32_t integer = -3;
    double real = 2.5;
    MathPoint3d point{1, 2, 3};
    MathVector3d vector{4, 5, 6};
    std::string_view word = "word";
    std::wstring_view text;

    // clang-format off
    static consteval auto pairs() { return std::to_array<Pair<Self>>({
        {"0",  "SAMPLE",              L"#VEXO_A0#", L"#VEXO_B0#"},
        {"5",  {&Self::handle, "59"}, L"#VEXO_A1#", L"#VEXO_B1#"},
        {"70", &Self::integer,        L"#VEXO_A2#", L"#VEXO_B2#"},
        {"40", &Self::real,           L"#VEXO_A3#", L"#VEXO_B3#"},
        {"10", x(&Self::point),       L"#VEXO_A4#", L"#VEXO_B4#"},
        {"20", y(&Self::point),       L"#VEXO_A5#", L"#VEXO_B5#"},
        {"30", z(&Self::point),       L"#VEXO_A6#", L"#VEXO_B6#"},
        {"16", x(&Self::vector),      L"#VEXO_A7#", L"#VEXO_B7#"},
        {"26", y(&Self::vector),      L"#VEXO_A8#", L"#VEXO_B8#"},
        {"36", z(&Self::vector),      L"#VEXO_A9#", L"#VEXO_B9#"},
        {"2",  &Self::word,           L"#VEXO_C0#", L"#VEXO_D0#"},
        {"1",  &Self::text,           L"#VEXO_C1#", L"#VEXO_D1#"},
        {"71", {"1", ""},             L"#VEXO_C2#", L"#VEXO_D2#"},
        {"3",  "",                    L"#VEXO_C3#", L"#VEXO_D3#"},
    }); }
    // clang-format on
};

// A record that begins and ends with a text.
struct TextRecord : DxfSection<TextRecord> {
    std::wstring_view first;
    std::wstring_view last;

    // clang-format off
    static consteval auto pairs() { return std::to_array<Pair<Self>>({
        {"1", &Self::first, L"#VEXO_A#", L"#VEXO_B#"},
        {"2", &Self::last,  L"#VEXO_C#", L"#VEXO_D#"},
    }); }
    // clang-format on
};

// A record that is little else than values.
struct Values : DxfSection<Values> {
    std::wstring_view text;
    double real = std::numeric_limits<double>::max(); // has the longest text

    // clang-format off
    static consteval auto pairs() { return std::to_array<Pair<Self>>({
        {"1",  &Self::text, L"#VEXO_A0#", L"#VEXO_B0#"},
        {"40", &Self::real, L"#VEXO_A1#", L"#VEXO_B1#"},
        {"41", &Self::real, L"#VEXO_A2#", L"#VEXO_B2#"},
        {"42", &Self::real, L"#VEXO_A3#", L"#VEXO_B3#"},
        {"43", &Self::real, L"#VEXO_A4#", L"#VEXO_B4#"},
    }); }
    // clang-format on
};

template <typename Section>
std::string rendered(const Section& section) {
    return writtenBytes([&](OutputBuffer& out) { section.render(out); });
}

std::string rendered(std::wstring_view first, std::wstring_view last) {
    TextRecord section;
    section.first = first;
    section.last = last;
    return rendered(section);
}

// The line behind the one that says `code`.
std::string valueIn(const std::string& record, const std::string& code) {
    const std::size_t begin = record.find("\r\n" + code + "\r\n") + code.size() + 4;
    return record.substr(begin, record.find("\r\n", begin) - begin);
}

} // namespace

TEST(DxfSection, WritesEveryKindOfValueOnALine) {
    Sample sample;
    sample.text = L"C:\\site\\S\u00FCd.png";
    EXPECT_EQ(rendered(sample), "0\r\nSAMPLE\r\n5\r\n7E\r\n70\r\n-3\r\n40\r\n2.50000000000000000\r\n"
                                "10\r\n1.00000000000000000\r\n20\r\n2.00000000000000000\r\n"
                                "30\r\n3.00000000000000000\r\n16\r\n4.00000000000000000\r\n"
                                "26\r\n5.00000000000000000\r\n36\r\n6.00000000000000000\r\n"
                                "2\r\nword\r\n1\r\nC:\\site\\S\xC3\xBC"
                                "d.png\r\n71\r\n1\r\n3\r\n\r\n");
}

TEST(DxfSection, UnfilledSaysItsFirstValues) {
    EXPECT_EQ(writtenBytes(&Sample::renderUnfilled),
              "0\r\nSAMPLE\r\n5\r\n59\r\n70\r\n\r\n40\r\n\r\n10\r\n\r\n20\r\n\r\n30\r\n\r\n16\r\n\r\n"
              "26\r\n\r\n36\r\n\r\n2\r\n\r\n1\r\n\r\n71\r\n\r\n3\r\n\r\n");
}

TEST(DxfSection, WritesTheLimitsOfItsValues) {
    Sample sample;
    sample.handle = Handle{};
    sample.integer = std::numeric_limits<std::int32_t>::min();
    sample.real = std::numeric_limits<double>::max();
    sample.word = "";
    std::string record = rendered(sample);
    EXPECT_EQ(valueIn(record, "5"), "0");
    EXPECT_EQ(valueIn(record, "70"), "-2147483648");
    EXPECT_EQ(valueIn(record, "40"),
              "179769313486231570814527423731704356798070567525844996598917476803157260780"
              "028538760589558632766878");
    EXPECT_EQ(valueIn(record, "2"), "");
    EXPECT_EQ(valueIn(record, "1"), "");

    const std::string longest(ZelkBase::fixedTextCapacity, 'w');
    sample.handle = Handle{0xFFFFFFFF};
    sample.integer = std::numeric_limits<std::int32_t>::max();
    sample.real = -0.1;
    sample.word = longest;
    record = rendered(sample);
    EXPECT_EQ(valueIn(record, "5"), "FFFFFFFF");
    EXPECT_EQ(valueIn(record, "70"), "2147483647");
    EXPECT_EQ(valueIn(record, "40"), "-0.10000000000000001");
    EXPECT_EQ(valueIn(record, "2"), longest);
}

TEST(DxfSection, NothingIsTrimmedOrEscaped) {
    EXPECT_EQ(rendered(L" #VEXO_A#\t%s \\U+00E4 ", L"a\rb"), "1\r\n #VEXO_A#\t%s \\U+00E4 \r\n2\r\na\rb\r\n");
}

TEST(DxfSection, TextWithLineFeedWritesSeveralLines) {
    EXPECT_EQ(rendered(L"one\ntwo\n", L""), "1\r\none\r\ntwo\r\n\r\n2\r\n\r\n");
}

TEST(DxfSection, TextMayHaveAnyLength) {
    constexpr std::size_t block = OutputBuffer::blockSize;
    for (const std::size_t size : {std::size_t{1}, block / 4, block / 4 + 1, block - 1, block, 3 * block + 5})
        EXPECT_EQ(rendered(std::wstring(size, L'x'), L"end"),
                  "1\r\n" + std::string(size, 'x') + "\r\n2\r\nend\r\n")
            << size;
}

TEST(DxfSection, LosesNothingWhereABlockEnds) {
    const Sample sample;
    const std::string record = rendered(sample);
    const std::string unfilled = writtenBytes(&Sample::renderUnfilled);
    std::string expected;
    const std::string written = writtenBytes([&](OutputBuffer& out) {
        while (expected.size() < 3 * OutputBuffer::blockSize) {
            sample.render(out);
            out.append("-");
            Sample::renderUnfilled(out);
            expected += record + "-" + unfilled;
        }
    });
    EXPECT_EQ(written, expected);
}

TEST(DxfSection, LongestValuesHaveRoomWhereABlockEnds) {
    const std::wstring wide(200, L'\u20AC');
    for (const std::wstring_view text : {std::wstring_view(), std::wstring_view(wide)}) {
        Values section;
        section.text = text;
        const std::string record = rendered(section);
        for (std::size_t room = 0; room < 1200; room += 16) {
            const std::string before(OutputBuffer::blockSize - room, 'x');
            const std::string bytes = writtenBytes([&](OutputBuffer& out) {
                out.append(before);
                section.render(out);
            });
            ASSERT_TRUE(bytes == before + record)
                << room << " bytes of room, " << text.size() << " characters";
        }
    }
}

TEST(DxfSection, CharacterBeyondUnicodeIsRefused) {
    if (sizeof(wchar_t) == 2)
        GTEST_SKIP() << "every wide character converts here";
    EXPECT_THROW(rendered(L"", std::wstring(1, static_cast<wchar_t>(0x110000))), std::range_error);
}
