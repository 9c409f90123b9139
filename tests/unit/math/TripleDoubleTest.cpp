#include <RasterPlanWriter/TripleDouble.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <type_traits>

TEST(TripleDouble, StartsAtZero) {
    const TripleDouble triple;
    EXPECT_EQ(triple.x, 0.0);
    EXPECT_EQ(triple.y, 0.0);
    EXPECT_EQ(triple.z, 0.0);
}

TEST(TripleDouble, StoresItsValuesUnchanged) {
    const TripleDouble triple(-0.0, std::numeric_limits<double>::infinity(),
                              std::numeric_limits<double>::quiet_NaN());
    EXPECT_TRUE(std::signbit(triple.x));
    EXPECT_EQ(triple.y, std::numeric_limits<double>::infinity());
    EXPECT_TRUE(std::isnan(triple.z));
}

TEST(TripleDouble, IsAssignedByValue) {
    TripleDouble a(1, 2, 3);
    TripleDouble b;
    b = a;
    a.x = 9;
    EXPECT_EQ(b.x, 1.0);
    EXPECT_EQ(b.y, 2.0);
    EXPECT_EQ(b.z, 3.0);
}

TEST(TripleDouble, IsThreeDoublesAndNothingElse) {
    EXPECT_EQ(sizeof(TripleDouble), 3 * sizeof(double));
    EXPECT_TRUE(std::is_trivially_copyable_v<TripleDouble>);
    EXPECT_FALSE(std::is_polymorphic_v<TripleDouble>);
}
