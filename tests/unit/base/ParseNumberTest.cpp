#include "base/ParseNumber.h"

#include "base/FormatFixed.h"

#include "support/CLocale.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <limits>
#include <random>
#include <stdexcept>
#include <string>

namespace {

using Limits = std::numeric_limits<double>;
using ZelkBase::parseNumber;
using ZelkBase::printedValue;

// Compares bits, so that the sign of zero counts; every NaN is the same.
std::uint64_t bitsOf(double value) {
    return std::bit_cast<std::uint64_t>(std::isnan(value) ? Limits::quiet_NaN() : value);
}

double readBack(double value) {
    const std::string text = ZelkBase::formatFixed(value, 17);
    return parseNumber(std::wstring(text.begin(), text.end()));
}

// The message of the exception that std::stod or parseNumber ends with; empty without one.
template <typename Parse>
std::string failureOf(Parse parse) {
    try {
        parse();
    } catch (const std::invalid_argument&) {
        return "invalid argument";
    } catch (const std::out_of_range&) {
        return "out of range";
    }
    return {};
}

} // namespace

TEST(ParseNumber, ReadsTheTextsOfDrawings) {
    EXPECT_EQ(parseNumber(L"1.00000000000000000"), 1.0);
    EXPECT_EQ(parseNumber(L"-0.33333333333333331"), -1.0 / 3.0);
    EXPECT_EQ(parseNumber(L"599.99999999999988631"), 599.9999999999999);
    EXPECT_EQ(bitsOf(parseNumber(L"-0.00000000000000000")), bitsOf(-0.0));
}

TEST(ParseNumber, SkipsWhiteSpaceAndIgnoresWhatFollows) {
    EXPECT_EQ(parseNumber(L" \t\n\v\f\r2.5"), 2.5);
    EXPECT_EQ(parseNumber(L"2.5 m"), 2.5);
    EXPECT_EQ(parseNumber(L"2.5.7"), 2.5);
    EXPECT_EQ(parseNumber(L"2,5"), 2.0);
    EXPECT_EQ(parseNumber(L"2.5\u00E4"), 2.5);
    EXPECT_EQ(parseNumber(L"2.5\u0131"), 2.5); // ends with the byte of '1'
    EXPECT_EQ(parseNumber(std::wstring(L"2\0007", 3)), 2.0);
    EXPECT_EQ(parseNumber(L"7-3"), 7.0);
}

TEST(ParseNumber, TakesTheLongestPrefix) {
    EXPECT_EQ(parseNumber(L"+4"), 4.0);
    EXPECT_EQ(parseNumber(L".5"), 0.5);
    EXPECT_EQ(parseNumber(L"5."), 5.0);
    EXPECT_EQ(parseNumber(L"-.5e1x"), -5.0);
    EXPECT_EQ(parseNumber(L"1e3"), 1000.0);
    EXPECT_EQ(parseNumber(L"1E+3"), 1000.0);
    EXPECT_EQ(parseNumber(L"1e"), 1.0);
    EXPECT_EQ(parseNumber(L"1e+"), 1.0);
    EXPECT_EQ(parseNumber(L"1e-x"), 1.0);
    EXPECT_EQ(parseNumber(L"1 e3"), 1.0);
}

TEST(ParseNumber, ReadsHexadecimal) {
    EXPECT_EQ(parseNumber(L"0x10"), 16.0);
    EXPECT_EQ(parseNumber(L"-0X1.8P1"), -3.0);
    EXPECT_EQ(parseNumber(L"0x.8"), 0.5);
    EXPECT_EQ(parseNumber(L"0x1p"), 1.0);
    EXPECT_EQ(parseNumber(L"0xfe"), 254.0);
    EXPECT_EQ(parseNumber(L"0x"), 0.0);
    EXPECT_EQ(parseNumber(L"0xg"), 0.0);
    EXPECT_EQ(parseNumber(L"0x."), 0.0);
    EXPECT_EQ(parseNumber(L"0x-1"), 0.0);
    EXPECT_EQ(parseNumber(L"0xinf"), 0.0);
    EXPECT_EQ(bitsOf(parseNumber(L"-0xnan")), bitsOf(-0.0));
}

TEST(ParseNumber, ReadsInfinityAndNan) {
    EXPECT_EQ(parseNumber(L"inf"), Limits::infinity());
    EXPECT_EQ(parseNumber(L"-INFinity"), -Limits::infinity());
    EXPECT_EQ(parseNumber(L"+infin"), Limits::infinity());
    EXPECT_TRUE(std::isnan(parseNumber(L"nan")));
    EXPECT_TRUE(std::isnan(parseNumber(L"-NaN(12)")));
}

TEST(ParseNumber, RefusesWhatIsNoNumber) {
    for (const wchar_t* text : {L"", L" ", L"x", L".", L"-", L"+", L"+-1", L"--1", L"-+1", L"- 1", L"e5",
                                L".e5", L"in", L"na", L"\u00E41", L"\u20031", L"#VEXO#"}) {
        try {
            parseNumber(text);
            ADD_FAILURE() << "a number: " << text;
        } catch (const std::invalid_argument& error) {
            EXPECT_STREQ(error.what(), "invalid stod argument");
        }
    }
}

TEST(ParseNumber, RefusesWhatIsOutOfRange) {
    for (const wchar_t* text :
         {L"1e309", L"-1e309", L"1.8e308", L"1e99999", L"1e-400", L"-1e-400", L"1e-99999", L"1e-310",
          L"4.9e-324", L"0x1p1024", L"0x1p-1074", L"-0x1p-2000"}) {
        try {
            parseNumber(text);
            ADD_FAILURE() << "in range: " << text;
        } catch (const std::out_of_range& error) {
            EXPECT_STREQ(error.what(), "stod argument out of range");
        }
    }
    EXPECT_EQ(parseNumber(L"1.7976931348623157e308"), Limits::max());
    EXPECT_EQ(parseNumber(L"2.2250738585072014e-308"), Limits::min());
    EXPECT_EQ(parseNumber(L"0e-99999"), 0.0);
    EXPECT_EQ(parseNumber(L"0e99999"), 0.0);
    EXPECT_EQ(parseNumber(L"0x0p-99999"), 0.0);
    EXPECT_EQ(parseNumber(std::wstring(400, L'0') + L"1"), 1.0);
}

// The start of the minimum: the largest double, cut off, still lies above every coordinate.
TEST(ParseNumber, ReadsTheCutOffLargestNumber) {
    EXPECT_EQ(readBack(Limits::max()), 1.7976931348623157e98);
    EXPECT_EQ(printedValue(Limits::max()), 1.7976931348623157e98);
    EXPECT_EQ(printedValue(Limits::min()), 0.0);
}

// In the "C" locale std::stod reads the same; only that not every system's rounds right.
// Texts are put together of parts that matter.
TEST(ParseNumber, AgreesWithTheStandardOnRandomTexts) {
    const wchar_t* const parts[] = {L"0", L"1",   L"9",  L"7",  L".",   L"e",   L"E",   L"+",    L"-", L"0x",
                                    L"p", L"a",   L"12", L"30", L"inf", L" ",   L"nan", L"\t",   L"x", L"00",
                                    L"X", L"(1)", L"f",  L"5",  L"e2",  L"e-3", L"Inf", L"inity"};
    const rasterplan::test::CLocale locale;
    const std::uint64_t allowed = std::stod(L"5E125") == 5E125 ? 0 : 1;
    std::mt19937 random(7);
    for (int i = 0; i < 300'000; ++i) {
        std::wstring text;
        for (auto length = random() % 7; length > 0; --length)
            text += parts[random() % std::size(parts)];
        double expected = 0.0;
        double actual = 0.0;
        const std::string expectedFailure = failureOf([&] { expected = std::stod(text); });
        ASSERT_EQ(failureOf([&] { actual = parseNumber(text); }), expectedFailure) << '"' << text << '"';
        const std::uint64_t more = std::max(bitsOf(actual), bitsOf(expected));
        const std::uint64_t less = std::min(bitsOf(actual), bitsOf(expected));
        ASSERT_LE(more - less, allowed) << '"' << text << '"';
    }
}

TEST(PrintedValue, IsWhatTheTextReadsBackAs) {
    const double edges[] = {0.0,
                            1e-17,
                            4.9e-18,
                            5.1e-18,
                            0.0625,
                            std::nextafter(0.0625, 0.0),
                            std::nextafter(0.0625, 1.0),
                            0.1,
                            1.0,
                            0x1p53,
                            0x1p64,
                            1e80,
                            std::nextafter(1e80, 1e81),
                            1e98,
                            1e99,
                            Limits::max(),
                            Limits::min(),
                            Limits::denorm_min(),
                            Limits::infinity(),
                            Limits::quiet_NaN()};
    for (const double edge : edges)
        for (const double value : {edge, -edge})
            EXPECT_EQ(bitsOf(printedValue(value)), bitsOf(readBack(value))) << std::hexfloat << value;
}

TEST(PrintedValue, IsWhatTheTextOfRandomNumbersReadsBackAs) {
#ifdef NDEBUG
    constexpr int count = 2'000'000;
#else
    constexpr int count = 200'000;
#endif
    std::mt19937_64 random(3);
    for (int i = 0; i < count; ++i) {
        const double significand = 1.0 + static_cast<double>(random() >> 12) * 0x1p-52;
        // Any bits; all exponents from 2^-60 to 2^67; and closely around the bound of 1/16.
        const double value = i % 3 == 0   ? std::bit_cast<double>(random())
                             : i % 3 == 1 ? std::ldexp(significand, static_cast<int>(random() % 128) - 60)
                                          : std::ldexp(significand, static_cast<int>(random() % 4) - 6);
        ASSERT_EQ(bitsOf(printedValue(value)), bitsOf(readBack(value))) << std::hexfloat << value;
    }
}
