#include "math/EulerAngles.h"

#include "support/Numbers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <set>
#include <vector>

using namespace rasterplan;
using namespace rasterplan::test;

namespace {

// The rotation about axis 0, 1 or 2 that takes the axis behind it towards the one behind that.
MathMatrix rotation(int axis, double angle) {
    MathMatrix matrix = MathMatrix::identity4();
    const int from = (axis + 1) % 3;
    const int to = (axis + 2) % 3;
    matrix(from, from) = matrix(to, to) = std::cos(angle);
    matrix(to, from) = std::sin(angle);
    matrix(from, to) = -std::sin(angle);
    return matrix;
}

// Turns about the axes one after the other: about the static ones, or about those that turn along.
MathMatrix recompose(const std::array<int, 3>& axes, bool rotating, const EulerAngles& angles) {
    const MathMatrix first = rotation(axes[0], angles.first);
    const MathMatrix second = rotation(axes[1], angles.second);
    const MathMatrix third = rotation(axes[2], angles.third);
    return rotating ? first * second * third : third * second * first;
}

double difference(const MathMatrix& a, const MathMatrix& b) {
    double largest = 0;
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            largest = std::max(largest, std::abs(a(row, column) - b(row, column)));
    return largest;
}

struct NumberedOrder {
    std::array<int, 3> axes;
    bool rotating;
    int number;
};

std::vector<NumberedOrder> allOrders() {
    std::vector<NumberedOrder> orders;
    for (const bool rotating : {false, true})
        for (int i = 0; i < 3; ++i)
            for (int j = 0; j < 3; ++j)
                for (int k = 0; k < 3; ++k)
                    if (const auto number = eulerOrder({i, j, k}, rotating))
                        orders.push_back({{i, j, k}, rotating, *number});
    return orders;
}

// Rotations whose angles are determined: none of them lets two axes coincide in any order.
std::vector<MathMatrix> generalRotations() {
    std::vector<MathMatrix> rotations;
    for (const double a : {-3.0, -1.2, 0.4, 2.1})
        for (const double b : {-2.7, -0.9, 0.3, 1.1})
            for (const double c : {-1.9, -0.2, 0.7, 2.9})
                rotations.push_back(rotation(0, a) * rotation(1, b) * rotation(2, c));
    return rotations;
}

// The 24 rotations that take axes to axes.
std::vector<MathMatrix> axisRotations() {
    std::vector<MathMatrix> rotations;
    const MathVector3d units[] = {{1, 0, 0}, {-1, 0, 0}, {0, 1, 0}, {0, -1, 0}, {0, 0, 1}, {0, 0, -1}};
    for (const MathVector3d& x : units)
        for (const MathVector3d& y : units)
            if (dot(x, y) == 0)
                rotations.push_back(MathMatrix::placement({}, x, y, cross(x, y)));
    return rotations;
}

} // namespace

TEST(EulerAngles, OrdersAreNumbered) {
    EXPECT_EQ(eulerOrder({0, 1, 2}, false), 0);
    EXPECT_EQ(eulerOrder({2, 1, 0}, true), 1);
    EXPECT_EQ(eulerOrder({0, 1, 0}, false), 2);
    EXPECT_EQ(eulerOrder({0, 1, 0}, true), 3);
    EXPECT_EQ(eulerOrder({0, 2, 1}, false), 4);
    EXPECT_EQ(eulerOrder({1, 2, 0}, false), 8);
    EXPECT_EQ(eulerOrder({2, 0, 1}, false), 16);
    EXPECT_EQ(eulerOrder({2, 1, 0}, false), 20);
    EXPECT_EQ(eulerOrder({0, 1, 2}, true), 21);
    EXPECT_EQ(eulerOrder({2, 1, 2}, false), 22);
    EXPECT_EQ(eulerOrder({2, 1, 2}, true), 23);
}

TEST(EulerAngles, ThereAreTwentyFourOrders) {
    std::set<int> numbers;
    for (const NumberedOrder& order : allOrders())
        numbers.insert(order.number);
    EXPECT_EQ(allOrders().size(), 24u);
    EXPECT_EQ(numbers.size(), 24u);
    EXPECT_EQ(*numbers.begin(), 0);
    EXPECT_EQ(*numbers.rbegin(), 23);
}

TEST(EulerAngles, OtherTriplesAreNoOrder) {
    for (const bool rotating : {false, true}) {
        EXPECT_FALSE(eulerOrder({0, 0, 1}, rotating));
        EXPECT_FALSE(eulerOrder({0, 1, 1}, rotating));
        EXPECT_FALSE(eulerOrder({2, 2, 2}, rotating));
        EXPECT_FALSE(eulerOrder({0, 1, 3}, rotating));
        EXPECT_FALSE(eulerOrder({-1, 1, 2}, rotating));
    }
}

TEST(EulerAngles, EveryOrderGivesBackTheRotation) {
    for (const NumberedOrder& order : allOrders())
        for (const MathMatrix& matrix : generalRotations()) {
            const auto angles = eulerAngles(matrix, order.number);
            ASSERT_TRUE(angles);
            EXPECT_LT(difference(recompose(order.axes, order.rotating, *angles), matrix), 1e-14)
                << order.number;
        }
}

TEST(EulerAngles, EveryOrderGivesBackTheAngles) {
    for (const NumberedOrder& order : allOrders()) {
        // Where the first axis comes again, the second angle is never negative in even orders nor positive in
        // odd ones.
        const bool oddRepetition = (order.number & 6) == 6;
        const EulerAngles given{0.4, oddRepetition ? -0.9 : 0.9, -2.5};
        const auto angles = eulerAngles(recompose(order.axes, order.rotating, given), order.number);
        ASSERT_TRUE(angles);
        EXPECT_NEAR(angles->first, given.first, 1e-14) << order.number;
        EXPECT_NEAR(angles->second, given.second, 1e-14) << order.number;
        EXPECT_NEAR(angles->third, given.third, 1e-14) << order.number;
    }
}

TEST(EulerAngles, EveryOrderGivesBackTheAxisAlignedRotations) {
    ASSERT_EQ(axisRotations().size(), 24u);
    for (const NumberedOrder& order : allOrders())
        for (const MathMatrix& matrix : axisRotations()) {
            const auto angles = eulerAngles(matrix, order.number);
            ASSERT_TRUE(angles);
            EXPECT_LT(difference(recompose(order.axes, order.rotating, *angles), matrix), 1e-15)
                << order.number;
        }
}

TEST(EulerAngles, CoincidingAxesLeaveOneAngleZero) {
    for (const NumberedOrder& order : allOrders()) {
        const bool repeated = order.axes[0] == order.axes[2];
        const EulerAngles given{0.5, repeated ? 0 : pi / 2, 0.25};
        const MathMatrix matrix = recompose(order.axes, order.rotating, given);
        const auto angles = eulerAngles(matrix, order.number);
        ASSERT_TRUE(angles);
        EXPECT_EQ(order.rotating ? angles->first : angles->third, 0) << order.number;
        EXPECT_LT(difference(recompose(order.axes, order.rotating, *angles), matrix), 1e-15) << order.number;
    }
}

TEST(EulerAngles, NoiseBesideCoincidingAxesIsNoAngle) {
    MathMatrix matrix = rotation(1, pi / 2) * rotation(2, 0.5);
    matrix(1, 2) = 1e-9;
    matrix(2, 2) = -1e-9;
    const auto angles = eulerAngles(matrix, 20);
    ASSERT_TRUE(angles);
    EXPECT_EQ(angles->third, 0);
    EXPECT_NEAR(angles->first, 0.5, 1e-14);
}

TEST(EulerAngles, NoiseEndsAboveTheLimit) {
    constexpr double limit = 0x1p-19; // sixteen units in the last place of a float
    MathMatrix matrix = rotation(1, pi / 2);
    matrix(2, 2) = 0;
    matrix(1, 2) = limit;
    EXPECT_EQ(eulerAngles(matrix, 20)->third, 0);
    matrix(1, 2) = std::nextafter(limit, 1.0);
    EXPECT_EQ(eulerAngles(matrix, 20)->third, -pi / 2);
}

TEST(EulerAngles, AreRoundedAlikeEverywhere) {
    // One common standard library misses the first angle by its last bit, another one the second.
    MathMatrix matrix = MathMatrix::identity4();
    matrix(1, 2) = -0.15101063247019403;
    matrix(2, 2) = 0.5467144764635619;
    EXPECT_EQ(eulerAngles(matrix, 20)->third, 0.2694952542391728);
    matrix(1, 2) = -0.9376937548212017;
    matrix(2, 2) = -0.3331854939172349;
    EXPECT_EQ(eulerAngles(matrix, 20)->third, 1.912206611720061);
}

TEST(EulerAngles, IdentityHasThreeZeroAnglesInEveryOrder) {
    for (int order = 0; order < 24; ++order) {
        const auto angles = eulerAngles(MathMatrix::identity4(), order);
        ASSERT_TRUE(angles);
        for (const double angle : {angles->first, angles->second, angles->third}) {
            EXPECT_EQ(angle, 0) << order;
            EXPECT_FALSE(std::signbit(angle)) << order;
        }
    }
}

TEST(EulerAngles, ThirdAngleOfStaticZyxIsTheTurnAboutX) {
    // Looking at a vertical facade, from the south: rows x, z and -y.
    MathMatrix matrix(4, 4);
    matrix(0, 0) = 1;
    matrix(1, 2) = 1;
    matrix(2, 1) = -1;
    matrix(3, 3) = 1;
    EXPECT_EQ(eulerAngles(matrix, 20)->third, -pi / 2);
    for (const MathMatrix& general : generalRotations())
        EXPECT_EQ(eulerAngles(general, 20)->third, -std::atan2(general(1, 2), general(2, 2)));
}

TEST(EulerAngles, AxisAlignedAnglesAreExact) {
    for (const NumberedOrder& order : allOrders())
        for (const MathMatrix& matrix : axisRotations()) {
            const EulerAngles angles = *eulerAngles(matrix, order.number);
            for (const double angle : {angles.first, angles.second, angles.third}) {
                EXPECT_TRUE(angle == 0 || std::abs(angle) == pi / 2 || std::abs(angle) == pi) << order.number;
                EXPECT_FALSE(angle == 0 && std::signbit(angle)) << order.number;
            }
        }
}

TEST(EulerAngles, WhatIsNoOrderOrNoRotationIsRefused) {
    for (const int order : {-1, 24, 25, 1000})
        EXPECT_FALSE(eulerAngles(MathMatrix::identity4(), order)) << order;
    EXPECT_FALSE(eulerAngles(MathMatrix(2, 4), 20));
    EXPECT_FALSE(eulerAngles(MathMatrix(4, 2), 20));
    EXPECT_TRUE(eulerAngles(MathMatrix(3, 3), 20));
}
