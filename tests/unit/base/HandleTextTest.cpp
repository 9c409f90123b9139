#include "base/HandleText.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <limits>
#include <random>
#include <string>

namespace {

std::string handleText(std::uint32_t handle) {
    char text[ZelkBase::handleTextCapacity];
    return std::string(text, ZelkBase::formatHandle(handle, text));
}

std::string integerText(std::int32_t number) {
    char text[ZelkBase::integerTextCapacity];
    return std::string(text, ZelkBase::formatInteger(number, text));
}

} // namespace

TEST(HandleText, IsUpperCaseHexadecimalWithoutLeadingZeros) {
    EXPECT_EQ(handleText(126), "7E");
    EXPECT_EQ(handleText(127), "7F");
    EXPECT_EQ(handleText(131), "83");
    EXPECT_EQ(handleText(0), "0");
    EXPECT_EQ(handleText(0xF), "F");
    EXPECT_EQ(handleText(0x10), "10");
    EXPECT_EQ(handleText(0xABCDEF), "ABCDEF");
    EXPECT_EQ(handleText(0x12345678), "12345678");
    EXPECT_EQ(handleText(0x9000000A), "9000000A");
    EXPECT_EQ(handleText(std::numeric_limits<std::uint32_t>::max()), "FFFFFFFF");
}

TEST(HandleText, AgreesWithPrintf) {
    std::mt19937 random(1);
    char text[9];
    for (int i = 0; i < 20'000; ++i) {
        const auto handle = static_cast<std::uint32_t>(random() >> (random() % 32));
        std::snprintf(text, sizeof text, "%X", static_cast<unsigned int>(handle));
        ASSERT_EQ(handleText(handle), text);
    }
}

TEST(HandleText, IntegersAreDecimal) {
    EXPECT_EQ(integerText(0), "0");
    EXPECT_EQ(integerText(6), "6");
    EXPECT_EQ(integerText(100000), "100000");
    EXPECT_EQ(integerText(-21), "-21");
    EXPECT_EQ(integerText(std::numeric_limits<std::int32_t>::max()), "2147483647");
    EXPECT_EQ(integerText(std::numeric_limits<std::int32_t>::min()), "-2147483648");
}
