#include "math/MathBox3d.h"

#include <gtest/gtest.h>

#include <limits>

using namespace rasterplan;

TEST(MathBox3d, StartsEmpty) {
    const MathBox3d box;
    EXPECT_TRUE(box.isEmpty());
    EXPECT_EQ(box.min(), MathPoint3d(4294967295.0, 4294967295.0, 4294967295.0));
    EXPECT_EQ(box.max(), MathPoint3d(-4294967295.0, -4294967295.0, -4294967295.0));
    EXPECT_EQ(box.center(), MathPoint3d(0, 0, 0));
}

TEST(MathBox3d, FirstPointIsTheBox) {
    MathBox3d box;
    EXPECT_TRUE(box.extend({1, 2, 3}));
    EXPECT_FALSE(box.isEmpty());
    EXPECT_EQ(box.min(), MathPoint3d(1, 2, 3));
    EXPECT_EQ(box.max(), MathPoint3d(1, 2, 3));
    EXPECT_EQ(box.center(), MathPoint3d(1, 2, 3));
}

TEST(MathBox3d, WidensByComponentAndSaysSo) {
    MathBox3d box;
    box.extend({0, 0, 0});
    EXPECT_TRUE(box.extend({4, -2, 0}));
    EXPECT_FALSE(box.extend({1, -1, 0}));
    EXPECT_FALSE(box.extend({4, -2, 0}));
    EXPECT_TRUE(box.extend({0, 0, -6}));
    EXPECT_EQ(box.min(), MathPoint3d(0, -2, -6));
    EXPECT_EQ(box.max(), MathPoint3d(4, 0, 0));
    EXPECT_EQ(box.center(), MathPoint3d(2, -1, -3));
}

TEST(MathBox3d, CentreIsHalfTheExtentFromTheMinimum) {
    MathBox3d box;
    box.extend({1.3, 0, 0});
    box.extend({5.1, 0, 0});
    EXPECT_EQ(box.center().x, 0x1.999999999999ap+1); // half the sum is the double below
}

TEST(MathBox3d, NoNumberChangesNothing) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    MathBox3d box;
    EXPECT_FALSE(box.extend({nan, nan, nan}));
    EXPECT_TRUE(box.extend({1, nan, 3}));
    EXPECT_TRUE(box.isEmpty());
    EXPECT_TRUE(box.extend({1, 2, 3}));
    EXPECT_FALSE(box.isEmpty());
}

TEST(MathBox3d, PointBeyondTheEmptyBoundsLeavesItEmpty) {
    MathBox3d box;
    EXPECT_TRUE(box.extend({1e10, 0, 0}));
    EXPECT_EQ(box.min().x, 4294967295.0);
    EXPECT_EQ(box.max().x, 1e10);
    EXPECT_FALSE(box.isEmpty());
}
