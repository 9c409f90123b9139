#include "reader/DxfGroups.h"

#include <gtest/gtest.h>

namespace rasterplan_tool {

TEST(DxfGroups, PairsHaveTheirLines) {
    std::vector<DxfFault> faults;
    const std::vector<DxfGroup> groups =
        readGroups("  0\r\nSECTION\r\n2\r\n HEADER \r\n1\r\n\r\n", faults, 11);
    ASSERT_EQ(groups.size(), 3U);
    EXPECT_EQ(groups[0].code, 0);
    EXPECT_EQ(groups[0].value, "SECTION");
    EXPECT_EQ(groups[0].line, 11U);
    EXPECT_EQ(groups[1].value, " HEADER "); // blanks may belong to a text
    EXPECT_EQ(groups[2].value, "");
    EXPECT_EQ(groups[2].line, 15U);
    EXPECT_TRUE(readGroups("", faults).empty());
    EXPECT_TRUE(faults.empty());
}

TEST(DxfGroups, HandlesAreNumbers) {
    EXPECT_EQ(handleNumber("7E"), 126U);
    EXPECT_EQ(handleNumber(" 007e\r"), 126U);
    EXPECT_EQ(handleNumber("0"), 0U);
    EXPECT_EQ(handleNumber("FFFFFFFFFFFFFFFF"), 0xFFFFFFFFFFFFFFFFU);
    for (const char* text : {"", " ", "10000000000000000", "-1", "0x7E", "7G", "7 E"})
        EXPECT_EQ(handleNumber(text), std::nullopt) << text;
}

TEST(DxfGroups, RealNumbersAreFinite) {
    EXPECT_EQ(realNumber(" 1.5 "), 1.5);
    EXPECT_EQ(realNumber("+1E2"), 100.0);
    EXPECT_EQ(realNumber("-7"), -7.0);
    for (const char* text : {"", "1,5", "inf", "nan", "1e999", "1x"})
        EXPECT_EQ(realNumber(text), std::nullopt) << text;
}

} // namespace rasterplan_tool
