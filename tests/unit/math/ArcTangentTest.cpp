#include "math/ArcTangent.h"

#include "support/Numbers.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

using rasterplan::arcTangent;
using rasterplan::test::infinity;

namespace {

struct Angle {
    double y, x, expected;
};

// Which of two doubles is meant, where zeros have a sign.
std::uint64_t bits(double value) {
    return std::bit_cast<std::uint64_t>(value);
}

} // namespace

// The expected angles were reckoned with 90 digits. In each of the first four one common standard library is
// off by the last bit, in each of the next four another one. The last one lies so close to half a bit that it
// takes 23 digits to round it.
TEST(ArcTangent, IsTheDoubleNextToTheTrueAngle) {
    for (const Angle& angle : {Angle{-0.15101063247019403, 0.5467144764635619, -0.2694952542391728},
                               {0.7500381388636823, 0.05256727130809297, 1.5008246145887705},
                               {0.20783806809691804, 0.945436603958945, 0.21639091131948987},
                               {-0.3175106351229096, 0.9415456673518675, -0.32524695065717907},
                               {-0.9376937548212017, -0.3331854939172349, -1.912206611720061},
                               {-0.6012722753566134, -0.08164373508160777, -1.7057558897980407},
                               {-0.6834025849427534, 0.25025163892200786, -1.219776358924172},
                               {0.46006104697625094, -0.22258947381785088, 2.0214211761996403},
                               {1.0, 1.0, 0.7853981633974483},
                               {0.1, -0.3, 2.819842099193151},
                               {-1e-09, 1.0, -1e-09},
                               {1e-09, -1.0, 3.141592652589793},
                               {-0.5, -0.5, -2.356194490192345},
                               {3e+200, 7e+199, 1.3415643935179014},
                               {5e-200, -2e-210, 1.5707963268348966},
                               {0.6, 0.8, 0.6435011087932844},
                               {0.991365, 1.007914, 0.7771208684054287}})
        EXPECT_EQ(bits(arcTangent(angle.y, angle.x)), bits(angle.expected)) << angle.y << ' ' << angle.x;
}

TEST(ArcTangent, LiesWithinTheLastBitsOfTheStandardOne) {
    std::mt19937_64 random(7);
    for (int i = 0; i < 200000; ++i) {
        // Doubles made of random bits have every size.
        const double y = std::bit_cast<double>(random());
        const double x = std::bit_cast<double>(random());
        const double expected = std::atan2(y, x);
        if (std::isnan(expected)) {
            EXPECT_TRUE(std::isnan(arcTangent(y, x)));
            continue;
        }
        const double unit = std::nextafter(std::abs(expected), infinity) - std::abs(expected);
        ASSERT_LE(std::abs(arcTangent(y, x) - expected), 2 * unit) << y << ' ' << x;
    }
}

TEST(ArcTangent, ZerosAndInfinitiesGiveWhatTheStandardOneGives) {
    for (const double y : {0.0, -0.0, 1.0, -1.0, infinity, -infinity})
        for (const double x : {0.0, -0.0, 1.0, -1.0, infinity, -infinity})
            EXPECT_EQ(bits(arcTangent(y, x)), bits(std::atan2(y, x))) << y << ' ' << x;
}

TEST(ArcTangent, NotANumberStaysOne) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(std::isnan(arcTangent(nan, 1.0)));
    EXPECT_TRUE(std::isnan(arcTangent(1.0, nan)));
}

TEST(ArcTangent, MirroredPointsHaveMirroredAngles) {
    std::mt19937_64 random(11);
    std::uniform_real_distribution<double> coordinate(-1.0, 1.0);
    for (int i = 0; i < 10000; ++i) {
        const double y = coordinate(random);
        const double x = coordinate(random);
        ASSERT_EQ(bits(arcTangent(-y, x)), bits(-arcTangent(y, x)));
    }
}
