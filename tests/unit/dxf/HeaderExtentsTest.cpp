#include "dxf/HeaderExtents.h"

#include "base/FormatFixed.h"
#include "support/Images.h"

#include <gtest/gtest.h>

#include <limits>

using namespace rasterplan;
using namespace rasterplan::test;

namespace {

using Limits = std::numeric_limits<double>;
using Point = MathPoint3d;

// The extents of these images, in this order.
HeaderExtents extentsOf(std::initializer_list<ImageParam> images) {
    HeaderExtents extents;
    for (const ImageParam& image : images)
        extents.updateHeaderFromImage(image);
    return extents;
}

// An image in the yz plane, so that its far corner has its own x.
ImageParam standingAt(double x) {
    return imageAt({x, 0, 1}, {x, 0, 0}, {x, 1, 0});
}

} // namespace

TEST(HeaderExtents, WithoutImagesAreTheLimitsAndMetres) {
    const HeaderExtents extents;
    EXPECT_EQ(extents.min(), Point(Limits::max(), Limits::max(), Limits::max()));
    EXPECT_EQ(extents.max(), Point(Limits::min(), Limits::min(), Limits::min()));
    EXPECT_EQ(extents.unit(), 6);
}

TEST(HeaderExtents, AreThoseOfASingleImage) {
    const HeaderExtents extents = extentsOf({levelImage({1, 2, 3}, 1, 0.5)});
    EXPECT_EQ(extents.min(), Point(1, 2, 3));
    EXPECT_EQ(extents.max(), Point(2, 2.5, 3));
}

TEST(HeaderExtents, StayAtZeroAboveImagesBelowZero) {
    const HeaderExtents extents = extentsOf({levelImage({-10, 1, -5}, 4, 2)});
    EXPECT_EQ(extents.min(), Point(-10, 1, -5));
    EXPECT_EQ(extents.max(), Point(Limits::min(), 3, Limits::min()));
}

TEST(HeaderExtents, MinimumIsTheLeastLeftBottomCornerOfEachAxis) {
    // U and V of the last image point towards lower coordinates, but only the left-bottom corner counts.
    EXPECT_EQ(extentsOf({levelImage({5, -2, 3}, 1, 1), levelImage({4, 7, 3}, 1, 1),
                         imageAt({9, -90, 9}, {9, 9, 9}, {-90, 9, 9})})
                  .min(),
              Point(4, -2, 3));
}

TEST(HeaderExtents, FarCornerCountsOnlyWhereTheTestValueIsAbove) {
    // The far corner of the second image is (250, 15), its test value (51, 11).
    EXPECT_EQ(extentsOf({levelImage({0, 0, 1}, 100, 10), levelImage({50, 10, 1}, 200, 5)}).max(),
              Point(100, 15, 1));
}

TEST(HeaderExtents, LowerFarCornerReplacesAHigherOneBelowTheTestValue) {
    EXPECT_EQ(extentsOf({levelImage({0, 0, 1}, 100, 1), levelImage({99.5, 0, 1}, 0.25, 1)}).max(),
              Point(99.75, 1, 1));
}

TEST(HeaderExtents, EqualTestValueChangesNothing) {
    EXPECT_EQ(extentsOf({levelImage({0, 0, 1}, 8, 8), levelImage({7, 7, 1}, 3, 3)}).max(), Point(8, 8, 1));
}

TEST(HeaderExtents, LastImageDecidesTheUnit) {
    HeaderExtents extents;
    ImageParam image = levelImage({0, 0, 0}, 1, 1);
    for (const DrawingUnit unit : {Millimeters, USSurveyFeet, Unitless}) {
        image.setDrawingUnit(unit);
        extents.updateHeaderFromImage(image);
        EXPECT_EQ(extents.unit(), unit);
    }
}

TEST(HeaderExtents, CoordinateThatIsNoNumberIsNotTaken) {
    const double nan = Limits::quiet_NaN();
    const HeaderExtents extents = extentsOf({imageAt({nan, 1, 0}, {nan, 0, 0}, {nan, 0, 1})});
    EXPECT_EQ(extents.min().x, Limits::max());
    EXPECT_EQ(extents.max().x, Limits::min());
}

// Written, 1e-18 is zero, 1.6e-17 is 2e-17, and 0.01 a little more than itself.
TEST(HeaderExtents, AreComparedAsTheyAreWritten) {
    EXPECT_EQ(extentsOf({standingAt(1e-18), standingAt(5e-19)}).min().x, 1e-18);
    EXPECT_EQ(extentsOf({standingAt(1e-18), standingAt(5e-19)}).max().x, 5e-19);
    EXPECT_EQ(extentsOf({standingAt(1.6e-17), standingAt(1.8e-17)}).min().x, 1.8e-17);
    EXPECT_EQ(extentsOf({standingAt(1.6e-17), standingAt(1.8e-17)}).max().x, 1.6e-17);
}

// A text is cut off behind 99 characters, so that a number of 100 digits reads as a tenth of it.
TEST(HeaderExtents, AreComparedAsTheyAreCutOff) {
    const auto far = [](double x) { return imageAt({x, 0, 1e90}, {x, 0, 0}, {x, 1e90, 0}); };
    EXPECT_EQ(extentsOf({far(5e98)}).min().x, Limits::max());
    EXPECT_EQ(extentsOf({far(1e98)}).min().x, 1e98);
    EXPECT_EQ(extentsOf({far(6e99), far(7e98)}).max().x, 7e98);
    EXPECT_EQ(extentsOf({far(6e98), far(5e98)}).max().x, 6e98);
}

TEST(HeaderExtents, KeepEveryBitOfSurveyCoordinates) {
    const HeaderExtents extents = extentsOf({levelImage({3512345.1, 5401234.7, 0.1}, 20.3, 10.4)});
    EXPECT_EQ(extents.min(), Point(3512345.1, 5401234.7, 0.1));
    EXPECT_EQ(extents.max(), Point(3512365.4, 5401245.1000000006, 0.1));
}

TEST(HeaderExtents, FarCornerIsAddedFromTheWidthOn) {
    const HeaderExtents extents =
        extentsOf({imageAt({-0.4, 12.0, 5.1}, {0.9, 8.4, -0.1}, {2.8, 13.7, -0.4})});
    EXPECT_EQ(extents.max(), Point(1.49999999999999978, 17.30000000000000071, 4.79999999999999893));
}

TEST(HeaderExtents, TestAddsUToTheCornerFirst) {
    // U and V added first give the corner's x with the other sign: then zero would not be passed.
    const double x = -0x1.3352ad194722ap-1;
    const HeaderExtents extents = extentsOf({imageAt({x - 0.34, 2.94, 0}, {x, 2, 0}, {x + 0.94, 2.34, 0})});
    EXPECT_EQ(ZelkBase::formatFixed(extents.max().x, 17), "-0.00024014409606732");
}
