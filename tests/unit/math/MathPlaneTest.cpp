#include "math/MathPlane.h"

#include "math/MathError.h"

#include <gtest/gtest.h>

using namespace rasterplan;
using ZelkBase::Text;

TEST(MathPlane, IsStoredWithAUnitNormal) {
    const MathPlane plane({0, 0, 1}, {0, 0, 2});
    EXPECT_EQ(plane.a(), 0);
    EXPECT_EQ(plane.b(), 0);
    EXPECT_EQ(plane.c(), 1);
    EXPECT_EQ(plane.d(), -1);
    EXPECT_EQ(plane.normal(), MathVector3d(0, 0, 1));
}

TEST(MathPlane, ProjectsAlongItsNormal) {
    const MathPlane plane({0, 0, 1}, {0, 0, 2});
    EXPECT_EQ(plane.project({0, 0, 5}), MathPoint3d(0, 0, 1));
    EXPECT_EQ(plane.project({3, -4, -5}), MathPoint3d(3, -4, 1));
    EXPECT_EQ(plane.project({7, 8, 1}), MathPoint3d(7, 8, 1));
}

TEST(MathPlane, SlopedPlaneProjectsToItsNearestPoint) {
    const MathPlane plane({1, 0, 0}, {1, 1, 1});
    const MathPoint3d foot = plane.project({1, 1, 1});
    EXPECT_NEAR(foot.x, 1 / 3.0, 1e-15);
    EXPECT_NEAR(foot.y, 1 / 3.0, 1e-15);
    EXPECT_NEAR(foot.z, 1 / 3.0, 1e-15);
}

TEST(MathPlane, ProjectionDividesTheWholeSum) {
    EXPECT_EQ(MathPlane({6.0, 4.2, 9.9}, {6.4, -3.0, 8.5}).project({-9.2, -4.9, -5.9}),
              MathPoint3d(0x1.7f7741203d008p+0, -0x1.3d44c99db05fep+3, 0x1.09dc7f830d53cp+3));
}

TEST(MathPlane, ZeroNormalThrows) {
    try {
        const MathPlane plane({1, 2, 3}, {0, 0, 0});
        ADD_FAILURE() << "a plane with d " << plane.d();
    } catch (const MathErrorZerovector& error) {
        EXPECT_EQ(error.message(), Text(L"MathError >Zero vector >MathPlane: Normal is zero vector >"));
    }
}

TEST(MathPlane, ShortNormalIsNoZeroVector) {
    EXPECT_EQ(MathPlane({0, 0, 1}, {0, 0, 1e-300}).normal(), MathVector3d(0, 0, 1));
}
