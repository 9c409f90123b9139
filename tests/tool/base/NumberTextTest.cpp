#include "base/NumberText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace rasterplan_tool {

TEST(NumberText, ParsesWholeNumbersOnly) {
    EXPECT_EQ(parseNumber("-1.5"), -1.5);
    EXPECT_EQ(parseNumber("4e3"), 4000.0);
    for (const char* text : {"", " 1", "1 ", "1,5", "1x", "x", "--1", "nan", "inf", "-infinity", "1e999"})
        EXPECT_EQ(parseNumber(text), std::nullopt) << text;
}

TEST(NumberText, ShortestReadsBackExactly) {
    EXPECT_EQ(shortestText(0.1), "0.1");
    EXPECT_EQ(shortestText(-0.0), "-0");
    for (const double number : {1.0 / 3.0, 4468215.842455544, 5e-324, std::numeric_limits<double>::max()})
        EXPECT_EQ(parseNumber(shortestText(number)), number);
}

TEST(NumberText, RoundedHasAtMostTheDigitsAskedFor) {
    EXPECT_EQ(roundedText(17.0 / 0.17, 9), "100");
    EXPECT_EQ(roundedText(1.0 / 3.0, 4), "0.3333");
    EXPECT_EQ(roundedText(-1e300, 9), "-1e+300");
}

TEST(NumberText, FixedHasTheDigitsAskedFor) {
    EXPECT_EQ(fixedText(2.5, 3), "2.500");
    EXPECT_EQ(fixedText(-2.0, 0), "-2");
    EXPECT_EQ(fixedText(std::numeric_limits<double>::max(), 9).size(), 309U + 1U + 9U);
}

TEST(NumberText, FixedZeroHasNoSign) {
    EXPECT_EQ(fixedText(-0.0, 2), "0.00");
    EXPECT_EQ(fixedText(-1e-9, 6), "0.000000");
    EXPECT_EQ(fixedText(-1e-6, 6), "-0.000001");
}

TEST(NumberText, RangesNameNumbersThatFollowEachOther) {
    EXPECT_EQ(rangesText({}), "");
    EXPECT_EQ(rangesText({7}), "7");
    EXPECT_EQ(rangesText({1, 2}), "1, 2");
    EXPECT_EQ(rangesText({1, 2, 3, 5, 7, 8, 9, 10}), "1-3, 5, 7-10");
}

} // namespace rasterplan_tool
