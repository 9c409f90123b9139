#include "math/MathVector3d.h"

#include "math/MathError.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace rasterplan;
using ZelkBase::Text;

TEST(MathVector3d, StartsAsZero) {
    EXPECT_EQ(MathVector3d(), MathVector3d(0, 0, 0));
}

TEST(MathVector3d, ConvertsToAndFromTriples) {
    const TripleDouble triple(1, 2, 3);
    const MathVector3d vector = triple;
    const TripleDouble back = vector;
    EXPECT_EQ(vector, MathVector3d(1, 2, 3));
    EXPECT_EQ(back.x, 1);
    EXPECT_EQ(back.y, 2);
    EXPECT_EQ(back.z, 3);
}

TEST(MathVector3d, CalculatesByComponent) {
    const MathVector3d a(1, 2, 3);
    const MathVector3d b(10, 20, 40);
    EXPECT_EQ(a + b, MathVector3d(11, 22, 43));
    EXPECT_EQ(b - a, MathVector3d(9, 18, 37));
    EXPECT_EQ(-a, MathVector3d(-1, -2, -3));
    EXPECT_EQ(a * 2, MathVector3d(2, 4, 6));
    EXPECT_EQ(2 * a, a * 2);
    EXPECT_EQ(b / 4, MathVector3d(2.5, 5, 10));
    EXPECT_EQ(MathVector3d(1, 1, 1) / 3.0, MathVector3d(1 / 3.0, 1 / 3.0, 1 / 3.0));
    EXPECT_EQ(dot(a, b), 170);
}

TEST(MathVector3d, CrossProductIsRightHanded) {
    EXPECT_EQ(cross(MathVector3d(1, 0, 0), MathVector3d(0, 1, 0)), MathVector3d(0, 0, 1));
    EXPECT_EQ(cross(MathVector3d(1, 0, 0), MathVector3d(0, 0, 1)), MathVector3d(0, -1, 0));
    EXPECT_EQ(cross(MathVector3d(2, 3, 4), MathVector3d(5, 6, 7)), MathVector3d(-3, 6, -3));
}

TEST(MathVector3d, DotProductAddsFromXToZ) {
    // Added first, y and z would leave the 1.
    EXPECT_EQ(dot(MathVector3d(1, 1e16, -1e16), MathVector3d(1, 1, 1)), 0);
    EXPECT_EQ(dot(MathVector3d(1e16, -1e16, 1), MathVector3d(1, 1, 1)), 1);
}

TEST(MathVector3d, LengthAddsFromXToZ) {
    EXPECT_EQ(MathVector3d(-7.1, -0.4, 2.1).length(), 0x1.da8ce6dddad95p+2);
}

TEST(MathVector3d, EqualityIsExact) {
    EXPECT_FALSE(MathVector3d(0.1 + 0.2, 0, 0) == MathVector3d(0.3, 0, 0));
    EXPECT_FALSE(MathVector3d(0, 0, 1) == MathVector3d(0, 0, 2));
    EXPECT_TRUE(MathVector3d(0.0, 0, 0) == MathVector3d(-0.0, 0, 0));
}

TEST(MathVector3d, NormalizingDividesByTheLength) {
    MathVector3d vector(3, 0, 4);
    EXPECT_EQ(vector.length(), 5);
    EXPECT_EQ(vector.normalized(), MathVector3d(3 / 5.0, 0, 4 / 5.0));
    EXPECT_EQ(vector, MathVector3d(3, 0, 4));
    vector.normalize();
    EXPECT_EQ(vector, MathVector3d(3 / 5.0, 0, 4 / 5.0));
}

TEST(MathVector3d, NormalizingTheZeroVectorThrows) {
    MathVector3d zero(0, -0.0, 0);
    EXPECT_THROW((void)zero.normalized(), MathErrorZerovector);
    try {
        zero.normalize();
        ADD_FAILURE() << "a zero vector was normalised";
    } catch (const MathErrorZerovector& error) {
        EXPECT_EQ(error.message(), Text(L"MathError >Zero vector >zero vector in MathVector3d::normalize "
                                        L"(zelkmath\\pub_mathvector3d, line 85)"));
    }
}

TEST(MathVector3d, LengthsWhoseSquareVanishesStillNormalize) {
    EXPECT_EQ(MathVector3d(1e-300, 0, 0).normalized(), MathVector3d(1, 0, 0));
    EXPECT_EQ(MathVector3d(0, -1e-300, 0).normalized(), MathVector3d(0, -1, 0));
    EXPECT_EQ(MathVector3d(3e-300, 0, 4e-300).normalized().length(), 1);
    const double smallest = std::numeric_limits<double>::denorm_min();
    EXPECT_EQ(MathVector3d(0, 0, smallest).normalized(), MathVector3d(0, 0, 1));
    EXPECT_EQ(MathVector3d(0, 0, smallest).length(), smallest);
}

TEST(MathVector3d, NoNumberStaysNoNumber) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const MathVector3d& vector :
         {MathVector3d(nan, 0, 0), MathVector3d(0, nan, 0), MathVector3d(0, 0, nan)}) {
        EXPECT_TRUE(std::isnan(vector.length()));
        EXPECT_TRUE(std::isnan(vector.normalized().x));
    }
}
