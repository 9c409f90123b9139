#include "facade/MiddledImagePlane.h"

#include "base/Error.h"
#include "math/MathError.h"
#include "support/Images.h"

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <stdexcept>

using namespace rasterplan;
using namespace rasterplan::test;

namespace {

Drawing drawingOf(std::initializer_list<ImageParam> images) {
    Drawing drawing;
    for (const ImageParam& image : images)
        if (!drawing.add(image))
            throw std::invalid_argument("not an image");
    return drawing;
}

void expectPlane(const ReferencePlane& plane, const MathPoint3d& origin, const MathVector3d& xAxis,
                 const MathVector3d& yAxis) {
    EXPECT_NEAR(distance(plane.origin, origin), 0.0, 1e-9)
        << plane.origin.x << ", " << plane.origin.y << ", " << plane.origin.z;
    EXPECT_NEAR((plane.xAxis - xAxis).length(), 0.0, 1e-12)
        << plane.xAxis.x << ", " << plane.xAxis.y << ", " << plane.xAxis.z;
    EXPECT_NEAR((plane.yAxis - yAxis).length(), 0.0, 1e-12)
        << plane.yAxis.x << ", " << plane.yAxis.y << ", " << plane.yAxis.z;
}

} // namespace

TEST(MiddledImagePlane, OfOneImageIsItsOwn) {
    const ReferencePlane plane = middledImagePlane(drawingOf({wallImage({1, 2, 3}, 4, 2)}));
    EXPECT_EQ(plane.origin, MathPoint3d(1, 2, 3));
    EXPECT_EQ(plane.xAxis, MathVector3d(1, 0, 0));
    EXPECT_EQ(plane.yAxis, MathVector3d(0, 0, 1));
}

TEST(MiddledImagePlane, OriginIsTheCornerFurthestToTheLeft) {
    const ReferencePlane plane =
        middledImagePlane(drawingOf({wallImage({3, 5, 1}, 4, 2), wallImage({-6, 5, 2}, 4, 2)}));
    expectPlane(plane, {-6, 5, 2}, {1, 0, 0}, {0, 0, 1});
}

TEST(MiddledImagePlane, EarlierImageWinsAmongEqual) {
    expectPlane(middledImagePlane(drawingOf({wallImage({3, 5, 8}, 4, 2), wallImage({3, 5, 1}, 4, 2)})),
                {3, 5, 8}, {1, 0, 0}, {0, 0, 1});
    expectPlane(middledImagePlane(drawingOf({wallImage({3, 5, 1}, 4, 2), wallImage({3, 5, 8}, 4, 2)})),
                {3, 5, 1}, {1, 0, 0}, {0, 0, 1});
}

TEST(MiddledImagePlane, LiesBetweenParallelImages) {
    const ReferencePlane plane = middledImagePlane(
        drawingOf({levelImage({4, 0, 2}, 1, 1), levelImage({1, 7, 9}, 1, 1), levelImage({3, 5, 4}, 1, 1)}));
    expectPlane(plane, {1, 7, 5}, {1, 0, 0}, {0, 1, 0});
}

TEST(MiddledImagePlane, IsTheMeanOfTurnedImages) {
    // A level image and a wall with the same U: the plane leans by 45 degrees.
    const ReferencePlane plane =
        middledImagePlane(drawingOf({levelImage({0, 0, 0}, 1, 1), wallImage({5, 0, 0}, 1, 1)}));
    const double half = std::sqrt(0.5);
    expectPlane(plane, {0, 0, 0}, {1, 0, 0}, {0, half, half});
}

TEST(MiddledImagePlane, YAxisIsAsLongAsTheSine) {
    // Normals z and y, U vectors x and z: the means stand at 60 degrees.
    const ReferencePlane plane =
        middledImagePlane(drawingOf({levelImage({0, 0, 0}, 1, 1), imageAt({1, 0, 0}, {0, 0, 0}, {0, 0, 1})}));
    EXPECT_NEAR(plane.xAxis.length(), 1.0, 1e-15);
    EXPECT_NEAR(plane.yAxis.length(), std::sqrt(0.75), 1e-15);
    EXPECT_NEAR(dot(plane.xAxis, plane.yAxis), 0.0, 1e-15);
    const double root = std::sqrt(0.5);
    EXPECT_NEAR((plane.xAxis - MathVector3d(root, 0, root)).length(), 0.0, 1e-15);
    EXPECT_NEAR((plane.yAxis - MathVector3d(0.5, 0.5, -0.5)).length(), 0.0, 1e-15);
}

TEST(MiddledImagePlane, LosesNoDigitsFarFromZero) {
    const ReferencePlane plane =
        middledImagePlane(drawingOf({wallImage({3512345.125, 5401234.5, 100.25}, 8, 4), //
                                     wallImage({3512341.125, 5401234.75, 100.5}, 2, 4)}));
    EXPECT_EQ(plane.origin, MathPoint3d(3512341.125, 5401234.625, 100.5));
}

TEST(MiddledImagePlane, NormalsThatCancelOutAreRefused) {
    const Drawing drawing =
        drawingOf({levelImage({0, 0, 0}, 1, 1), imageAt({0, -1, 0}, {0, 0, 0}, {1, 0, 0})});
    EXPECT_THROW(middledImagePlane(drawing), MathErrorZerovector);
}

TEST(MiddledImagePlane, EdgesThatCancelOutAreRefused) {
    const Drawing drawing =
        drawingOf({levelImage({0, 0, 0}, 1, 1), imageAt({0, -1, 0}, {0, 0, 0}, {-1, 0, 0})});
    EXPECT_THROW(middledImagePlane(drawing), MathErrorZerovector);
}

TEST(MiddledImagePlane, MissingImageIsAnError) {
    Drawing behind = drawingOf({levelImage({0, 0, 0}, 1, 1)});
    behind.images.appendEmpty();
    Drawing before;
    before.images.appendEmpty();
    before.add(levelImage({0, 0, 0}, 1, 1));
    for (const Drawing* const drawing : {&behind, &before}) {
        try {
            middledImagePlane(*drawing);
            ADD_FAILURE() << "the missing image was not missed";
        } catch (const ZelkBase::Error& error) {
            EXPECT_EQ(error.message(), ZelkBase::Text(L"Null pointer dereferenced"));
        }
    }
}

TEST(ReferencePlane, HasTheSameBitsEverywhere) {
    const ReferencePlane plane =
        middledImagePlane(drawingOf({imageAt({1.5, 2.1, -3.0}, {0.1, 0.7, -2.3}, {0.7, 0.4, -1.7}),
                                     imageAt({0.1, -0.5, 0.3}, {-1.7, 0.4, 0.9}, {-1.1, 0.8, 2.1}),
                                     imageAt({2.5, -0.5, -0.1}, {2.3, -1.1, 0.2}, {5.9, -2.9, -1.0})}));
    EXPECT_EQ(plane.origin, MathPoint3d(-0x1.d0fe4c9840475p+0, -0x1.38f291ccbdc98p-3, 0x1.217cfac7c1990p-1));
    EXPECT_EQ(plane.xAxis, MathVector3d(0x1.a77f74fd2ab52p-1, -0x1.9d2b2d73debd1p-3, 0x1.0c8f43f1b72e3p-1));
    EXPECT_EQ(plane.yAxis, MathVector3d(0x1.16c0b40e084a2p-1, 0x1.506cfc9e2d50cp-2, -0x1.76dfd7a8f0aa5p-1));
}

TEST(ReferencePlane, BeyondTheGreatestCoordinateNoCornerIsFurthestToTheLeft) {
    // Rounding alone puts both corners beyond 2^31 in the plane's own coordinates.
    const ReferencePlane plane = middledImagePlane(
        drawingOf({imageAt({-2.1e29, -6.1e29, 7.6e29}, {0, 0, 0}, {-9.5e29, -3.5e28, -2.9e29}),
                   imageAt({6.8e29, -6.1e30, 6.9e30}, {1e30, -6.000000000000001e30, 6.000000000000001e30},
                           {7.5e29, -7e30, 5.8e30})}));
    EXPECT_EQ(plane.origin, MathPoint3d(0, 0, 0));
}
