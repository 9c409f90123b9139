#include "view/Base64.h"

#include <gtest/gtest.h>

namespace rasterplan_tool {

TEST(Base64, PadsToWholeGroups) {
    EXPECT_EQ(base64(""), "");
    EXPECT_EQ(base64("M"), "TQ==");
    EXPECT_EQ(base64("Ma"), "TWE=");
    EXPECT_EQ(base64("Man"), "TWFu");
    EXPECT_EQ(base64("Man\n"), "TWFuCg==");
}

TEST(Base64, TakesEveryByte) {
    EXPECT_EQ(base64(std::string_view("\0\xff\xfe\xfb", 4)), "AP/++w==");
}

} // namespace rasterplan_tool
