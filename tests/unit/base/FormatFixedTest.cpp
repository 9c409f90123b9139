#include "base/FormatFixed.h"

#include "support/CLocale.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <random>
#include <string>
#include <string_view>

namespace {

using Limits = std::numeric_limits<double>;

std::string format(double value) {
    std::array<char, ZelkBase::fixedTextCapacity> text;
    char* const first = text.data();
    return std::string(first, ZelkBase::formatFixed17(value, first));
}

std::string byToChars(double value, int precision) {
    std::array<char, 2000> text;
    char* const first = text.data();
    const char* end =
        std::to_chars(first, first + text.size(), value, std::chars_format::fixed, precision).ptr;
    return std::string(first, static_cast<std::size_t>(end - first)).substr(0, ZelkBase::fixedTextCapacity);
}

std::string byPrintf(double value, int precision) {
    std::array<char, 2000> text;
    const rasterplan::test::CLocale locale;
    std::snprintf(text.data(), text.size(), "%.*f", precision, value);
    return std::string(text.data()).substr(0, ZelkBase::fixedTextCapacity);
}

// The value and its neighbours, each with either sign, against std::to_chars. False at a difference.
bool agreesAround(double value) {
    for (const double near : {std::nextafter(value, 0.0), value, std::nextafter(value, Limits::infinity())})
        for (const double number : {near, -near})
            if (format(number) != byToChars(number, 17)) {
                ADD_FAILURE() << std::hexfloat << number << " gives " << format(number);
                return false;
            }
    return true;
}

#ifdef NDEBUG
constexpr int randomCount = 400'000; // of each kind
#else
constexpr int randomCount = 50'000;
#endif

// Compares `randomCount` numbers of a kind with std::to_chars, and every 16th with snprintf.
template <typename Draw>
void expectAgreement(Draw draw) {
    std::mt19937_64 random(20100704);
    for (int i = 0; i < randomCount; ++i) {
        const double value = draw(random);
        if (std::isnan(value))
            continue;
        ASSERT_EQ(format(value), byToChars(value, 17)) << std::hexfloat << value;
        if (i % 16 == 0) {
            ASSERT_EQ(format(value), byPrintf(value, 17)) << std::hexfloat << value;
        }
    }
}

double unit(std::mt19937_64& random) {
    return static_cast<double>(random() >> 11) * 0x1p-53;
}

} // namespace

TEST(FormatFixed, HasSeventeenDecimalsAndAPoint) {
    EXPECT_EQ(format(2.5), "2.50000000000000000");
    EXPECT_EQ(format(1024.0), "1024.00000000000000000");
    EXPECT_EQ(format(640.0), "640.00000000000000000");
    EXPECT_EQ(format(479.5), "479.50000000000000000");
    EXPECT_EQ(format(0.1), "0.10000000000000001");
    EXPECT_EQ(format(-1.0 / 3.0), "-0.33333333333333331");
    EXPECT_EQ(format(5432109.875), "5432109.87500000000000000");
    EXPECT_EQ(format(599.9999999999999), "599.99999999999988631");
}

TEST(FormatFixed, KeepsTheSignOfZero) {
    EXPECT_EQ(format(0.0), "0.00000000000000000");
    EXPECT_EQ(format(-0.0), "-0.00000000000000000");
    EXPECT_EQ(format(-1e-18), "-0.00000000000000000");
    EXPECT_EQ(format(-Limits::denorm_min()), "-0.00000000000000000");
}

TEST(FormatFixed, RoundsTheSmallestNumbersToZero) {
    EXPECT_EQ(format(Limits::min()), "0.00000000000000000");
    EXPECT_EQ(format(Limits::denorm_min()), "0.00000000000000000");
    EXPECT_EQ(format(4.9e-18), "0.00000000000000000");
    EXPECT_EQ(format(5.1e-18), "0.00000000000000001");
    EXPECT_EQ(format(0x1p-57), "0.00000000000000001");
    EXPECT_EQ(format(0x1p-58), "0.00000000000000000");
}

TEST(FormatFixed, WritesPowersOfTen) {
    EXPECT_EQ(format(1e-17), "0.00000000000000001");
    EXPECT_EQ(format(1e-5), "0.00001000000000000");
    EXPECT_EQ(format(1.0), "1.00000000000000000");
    EXPECT_EQ(format(10.0), "10.00000000000000000");
    EXPECT_EQ(format(1e15), "1000000000000000.00000000000000000");
    EXPECT_EQ(format(1e22), "10000000000000000000000.00000000000000000");
    EXPECT_EQ(format(1e23), "99999999999999991611392.00000000000000000");
}

// A tie at the 17th decimal needs exactly 18 binary places.
TEST(FormatFixed, RoundsTiesToTheEvenDecimal) {
    EXPECT_EQ(format(0x1p-18), "0.00000381469726562");                    // ...5625 and nothing more
    EXPECT_EQ(format(0x3p-18), "0.00001144409179688");                    // ...6875
    EXPECT_EQ(format(0x3FFFFp-18), "0.99999618530273438");                // ...4375
    EXPECT_EQ(format(0x3FFFDp-18), "0.99998855590820312");                // ...3125
    EXPECT_EQ(format(1.0 + 0x1p-18), "1.00000381469726562");              // with an integer before it
    EXPECT_EQ(format(0x1p34 + 0x1p-18), "17179869184.00000381469726562"); // the last bit of the number
    EXPECT_EQ(format(std::nextafter(0x1p-18, 0.0)), "0.00000381469726562");
    EXPECT_EQ(format(std::nextafter(0x1p-18, 1.0)), "0.00000381469726563");
    EXPECT_EQ(format(std::nextafter(0x3p-18, 0.0)), "0.00001144409179687");
}

TEST(FormatFixed, RoundsTiesOfEverySizeAsTheLibraryDoes) {
    for (int exponent = -18; exponent < 40; ++exponent)
        for (const double odd : {0x1p-18, 0x3p-18, 0x5p-18, 0x7p-18})
            ASSERT_TRUE(agreesAround(std::ldexp(1.0, exponent) + odd));
    for (std::uint32_t odd = 1; odd < (1u << 18); odd += 2 * 7)
        ASSERT_TRUE(agreesAround(odd * 0x1p-18));
}

// No double is so near to the next integer that its 17 decimals would round up to it.
TEST(FormatFixed, NeverReachesTheNextInteger) {
    EXPECT_EQ(format(1.0 - 0x1p-53), "0.99999999999999989");
    EXPECT_EQ(format(std::nextafter(0.5, 0.0)), "0.49999999999999994");
    EXPECT_EQ(format(2.0 - 0x1p-52), "1.99999999999999978");
    EXPECT_EQ(format(10.0 - 0x1p-49), "9.99999999999999822");
    EXPECT_EQ(format(std::nextafter(1e9, 0.0)), "999999999.99999988079071045");
}

// Carries run through the decimals, though.
TEST(FormatFixed, CarriesThroughNines) {
    EXPECT_EQ(format(9.99999999999999996e-7), "0.00000100000000000");
    EXPECT_EQ(format(9.9999999999999999e-9), "0.00000001000000000");
    EXPECT_EQ(format(std::nextafter(1e-10, 0.0)), "0.00000000010000000");
    EXPECT_EQ(format(std::nextafter(1e-16, 0.0)), "0.00000000000000010");
}

TEST(FormatFixed, WritesLargeIntegersExactly) {
    EXPECT_EQ(format(0x1p53 - 1), "9007199254740991.00000000000000000");
    EXPECT_EQ(format(0x1p53), "9007199254740992.00000000000000000");
    EXPECT_EQ(format(0x1p52 - 0.5), "4503599627370495.50000000000000000");
    EXPECT_EQ(format(0x1p63), "9223372036854775808.00000000000000000");
    EXPECT_EQ(format(std::nextafter(0x1p63, 0.0)), "9223372036854774784.00000000000000000");
    EXPECT_EQ(format(std::nextafter(0x1p64, 0.0)), "18446744073709549568.00000000000000000");
    EXPECT_EQ(format(0x1p64), "18446744073709551616.00000000000000000");
    EXPECT_EQ(format(-0x1p64), "-18446744073709551616.00000000000000000");
    EXPECT_EQ(format(0x1.0000000000001p64), "18446744073709555712.00000000000000000");
}

TEST(FormatFixed, CutsTheTextOffBehind99Characters) {
    EXPECT_EQ(format(2e80).size(), 99u);
    EXPECT_EQ(format(2e80).substr(81), ".00000000000000000");
    EXPECT_EQ(format(2e81).size(), 99u);
    EXPECT_EQ(format(2e81).substr(82), ".0000000000000000");
    EXPECT_EQ(format(-2e80).substr(82), ".0000000000000000");
    EXPECT_EQ(format(2e82).substr(83), ".000000000000000");
    EXPECT_EQ(format(2e97).substr(98), ".");
    EXPECT_EQ(format(2e98), byPrintf(2e98, 0));
    EXPECT_EQ(format(Limits::max()), "179769313486231570814527423731704356798070567525844996598917476803157"
                                     "260780028538760589558632766878");
    EXPECT_EQ(format(-Limits::max()), "-17976931348623157081452742373170435679807056752584499659891747680315"
                                      "726078002853876058955863276687");
    EXPECT_EQ(ZelkBase::formatFixed(1.0, 200), "1." + std::string(97, '0'));
}

TEST(FormatFixed, NeverWritesBehindItsCapacity) {
    std::array<char, ZelkBase::fixedTextCapacity + 8> text;
    for (const double value : {-Limits::max(), -1e80, -1e81, -1e98, -0x1.fffffffffffffp63, -0.1}) {
        text.fill('#');
        char* const end = ZelkBase::formatFixed17(value, text.data());
        EXPECT_LE(end, text.data() + ZelkBase::fixedTextCapacity);
        EXPECT_EQ(std::string_view(text.data() + ZelkBase::fixedTextCapacity, 8), "########");
    }
}

TEST(FormatFixed, NamesWhatIsNoNumber) {
    EXPECT_EQ(format(Limits::infinity()), "inf");
    EXPECT_EQ(format(-Limits::infinity()), "-inf");
    EXPECT_EQ(format(Limits::quiet_NaN()), "nan");
    EXPECT_EQ(format(std::copysign(Limits::quiet_NaN(), -1.0)), "nan");
    EXPECT_EQ(ZelkBase::formatFixed(std::copysign(Limits::quiet_NaN(), -1.0), 3), "nan");
}

TEST(FormatFixed, TakesAnyPrecision) {
    EXPECT_EQ(ZelkBase::formatFixed(2.5, 17), "2.50000000000000000");
    EXPECT_EQ(ZelkBase::formatFixed(2.5, 0), "2");
    EXPECT_EQ(ZelkBase::formatFixed(3.5, 0), "4");
    EXPECT_EQ(ZelkBase::formatFixed(-0.125, 2), "-0.12");
    EXPECT_EQ(ZelkBase::formatFixed(9.996, 2), "10.00");
    EXPECT_EQ(ZelkBase::formatFixed(0.1, 20), "0.10000000000000000555");
    EXPECT_EQ(ZelkBase::formatFixed(1.5, -3), "1.500000");
    EXPECT_EQ(ZelkBase::formatFixed(-Limits::max(), std::numeric_limits<int>::max()), format(-Limits::max()));
    for (const double value : {0.0, -0.0, 0.1, 1e-300, Limits::denorm_min(), 123456.789, 1e22, Limits::max()})
        for (int precision = 0; precision < 1200; ++precision)
            ASSERT_EQ(ZelkBase::formatFixed(value, precision), byPrintf(value, precision)) << precision;
}

TEST(FormatFixed, AgreesAtEveryPowerOfTwoAndTen) {
    for (int exponent = -1074; exponent < 1024; ++exponent)
        ASSERT_TRUE(agreesAround(std::ldexp(1.0, exponent)));
    for (int exponent = -30; exponent < 30; ++exponent)
        ASSERT_TRUE(agreesAround(std::pow(10.0, exponent)));
}

TEST(FormatFixed, AgreesAroundHalvesOfTheLastDecimal) {
    for (int units = 0; units < 20'000; ++units)
        ASSERT_TRUE(agreesAround((units + 0.5) * 1e-17));
}

TEST(FormatFixed, AgreesOnAnyBits) {
    expectAgreement([](auto& random) { return std::bit_cast<double>(random()); });
}

TEST(FormatFixed, AgreesOnAllMagnitudesWithDecimals) {
    expectAgreement(
        [](auto& random) { return std::ldexp(1.0 + unit(random), static_cast<int>(random() % 128) - 63); });
}

TEST(FormatFixed, AgreesOnSurveyCoordinates) {
    expectAgreement([](auto& random) { return unit(random) * 1.2e7 - 6e6; });
}

TEST(FormatFixed, AgreesOnUnitVectors) {
    expectAgreement([](auto& random) { return unit(random) * 2.0 - 1.0; });
}

TEST(FormatFixed, AgreesOnSmallNumbers) {
    expectAgreement([](auto& random) { return unit(random) * 1e-10 - 5e-11; });
}

TEST(FormatFixed, AgreesOnNumbersOfFewDecimals) {
    expectAgreement([](auto& random) {
        return static_cast<double>(random() % 1'000'000'000) /
               std::pow(10.0, static_cast<double>(random() % 10));
    });
}
