#include "math/MathPoint3d.h"

#include "math/MathError.h"

#include <gtest/gtest.h>

using namespace rasterplan;
using ZelkBase::Text;

TEST(MathPoint3d, ConvertsToAndFromTriples) {
    const MathPoint3d point = TripleDouble(1, 2, 3);
    const TripleDouble back = point;
    EXPECT_EQ(point, MathPoint3d(1, 2, 3));
    EXPECT_EQ(back.x, 1);
    EXPECT_EQ(back.y, 2);
    EXPECT_EQ(back.z, 3);
}

TEST(MathPoint3d, MovesByVectors) {
    const MathPoint3d point(1, 2, 3);
    const MathVector3d vector(10, 20, 30);
    EXPECT_EQ(point + vector, MathPoint3d(11, 22, 33));
    EXPECT_EQ(point - vector, MathPoint3d(-9, -18, -27));
    EXPECT_EQ(MathPoint3d(4, 4, 4) - point, MathVector3d(3, 2, 1));
}

TEST(MathPoint3d, DistanceHasNoDirection) {
    const MathPoint3d a(1, 1, 1);
    const MathPoint3d b(3, 4, 7);
    EXPECT_EQ(distance(a, b), 7);
    EXPECT_EQ(distance(b, a), 7);
    EXPECT_EQ(distance(a, a), 0);
}

TEST(MathPoint3d, ComponentsAreNumberedFromZero) {
    MathPoint3d point(1, 2, 3);
    point[2] = 7;
    const MathPoint3d& constant = point;
    EXPECT_EQ(constant[0], 1);
    EXPECT_EQ(constant[1], 2);
    EXPECT_EQ(constant[2], 7);
    EXPECT_EQ(point, MathPoint3d(1, 2, 7));
}

TEST(MathPoint3d, OtherComponentsThrow) {
    MathPoint3d point;
    const MathPoint3d& constant = point;
    for (const int component : {-1, 3, 1000}) {
        EXPECT_THROW((void)point[component], MathError);
        try {
            (void)constant[component];
            ADD_FAILURE() << "component " << component;
        } catch (const MathError& error) {
            EXPECT_EQ(error.message(), Text(L"MathError >MathPoint3d: Invalid component"));
        }
    }
}
