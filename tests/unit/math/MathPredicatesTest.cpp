#include "math/MathPredicates.h"

#include "support/Numbers.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace rasterplan;
using namespace rasterplan::test;

namespace {

// In the xy plane, at an angle in degrees from the x axis.
MathVector3d direction(double degrees) {
    return {std::cos(degrees * pi / 180), std::sin(degrees * pi / 180), 0};
}

} // namespace

TEST(MathPredicates, ZeroVectorReachesUpToTheTolerance) {
    EXPECT_TRUE(isZeroVector({0, 0, 0}));
    EXPECT_TRUE(isZeroVector({0, 1e-10, 0}));
    EXPECT_FALSE(isZeroVector({0, 1.0000001e-10, 0}));
    EXPECT_TRUE(isZeroVector({0, 3, 4}, MathTol(0, 0, 5)));
    EXPECT_FALSE(isZeroVector({0, 3, 4}, MathTol(9, 9, 4.9)));
}

TEST(MathPredicates, RightAnglesArePerpendicular) {
    EXPECT_TRUE(isPerpendicular({1, 0, 0}, {0, 0, 7}));
    EXPECT_TRUE(isPerpendicular({1, 0, 0}, {0, 1e-11, 1}));
    EXPECT_TRUE(isPerpendicular({1, 0, 0}, {1e-11, 1, 0}));
    EXPECT_TRUE(isPerpendicular({1, 0, 0}, direction(90)));
}

TEST(MathPredicates, OtherAnglesAreNotPerpendicular) {
    EXPECT_FALSE(isPerpendicular({1, 0, 0}, direction(89.99999)));
    EXPECT_FALSE(isPerpendicular({-1, 0, 0}, direction(89.99999)));
    EXPECT_FALSE(isPerpendicular({1, 0, 0}, {1, 0, 0}));
    EXPECT_TRUE(isPerpendicular({1, 0, 0}, direction(89.99999), MathTol(0, 0, 1e-6)));
}

TEST(MathPredicates, PerpendicularityDoesNotDependOnLength) {
    EXPECT_FALSE(isPerpendicular({1e-6, 0, 0}, {1e-6, 1e-3, 0}));
    EXPECT_TRUE(isPerpendicular({1e6, 0, 0}, {1e-5, 1e6, 0}));
}

TEST(MathPredicates, PerpendicularityReachesUpToTheTolerance) {
    EXPECT_TRUE(isPerpendicular({1, 0, 0}, {0.6, 0.8, 0}, MathTol(0, 0, 0.6)));
    EXPECT_TRUE(isPerpendicular({1, 0, 0}, {-0.6, 0.8, 0}, MathTol(0, 0, 0.6)));
    EXPECT_FALSE(isPerpendicular({1, 0, 0}, {0.6, 0.8, 0}, MathTol(0, 0, 0.59999999)));
}

TEST(MathPredicates, ZeroVectorsHaveNoDirection) {
    EXPECT_FALSE(isPerpendicular({1e-10, 0, 0}, {0, 1, 0}));
    EXPECT_FALSE(isPerpendicular({1, 0, 0}, {0, 1e-10, 0}));
    EXPECT_FALSE(isPerpendicular({1, 0, 0}, {0, 0, 0}, MathTol(0, 0, 0)));
    EXPECT_FALSE(isParallel({0, 0, 0}, {1, 0, 0}));
    EXPECT_FALSE(isParallel({1, 0, 0}, {1e-11, 0, 0}));
}

TEST(MathPredicates, WhatIsNotFiniteHasNoDirection) {
    for (const double value : {notANumber, infinity, -infinity}) {
        EXPECT_FALSE(isPerpendicular({value, 0, 0}, {0, 1, 0})) << value;
        EXPECT_FALSE(isPerpendicular({1, 0, 0}, {0, value, 0})) << value;
        EXPECT_FALSE(isPerpendicular({1, 0, 0}, {0, 1, value})) << value;
        EXPECT_FALSE(isParallel({value, 0, 0}, {1, 0, 0})) << value;
        EXPECT_FALSE(isParallel({1, 0, 0}, {value, 0, 0})) << value;
    }
}

TEST(MathPredicates, ParallelVectorsMayPointOppositeWays) {
    EXPECT_TRUE(isParallel({0, 0, 2}, {0, 0, 5}));
    EXPECT_TRUE(isParallel({0, 0, 2}, {0, 0, -5}));
    EXPECT_TRUE(isParallel({0, 0, 1}, {0, 0.9e-10, 1}));
    EXPECT_FALSE(isParallel({0, 0, 1}, {0, 1.1e-10, 1}));
    EXPECT_FALSE(isParallel({0, 0, 1}, {0, 1, 0}));
    EXPECT_TRUE(isParallel({0, 0, 1e6}, {0, 1e-5, 1e6}));
    EXPECT_FALSE(isParallel({0, 0, 1e-6}, {0, 1e-5, 1e-6}));
}
