#include "report/Deviation.h"

#include "base/Vector.h"

#include <gtest/gtest.h>

#include <cmath>

namespace rasterplan_tool {
namespace {

const Plane upright{{10, 5, 2}, {1, 0, 0}, {0, 0, 1}}; // looked at from negative y

ImageParam image(const TripleDouble& leftBottom, const TripleDouble& bottom, const TripleDouble& left) {
    ImageParam made;
    made.setImageCorners(leftBottom + left, leftBottom, leftBottom + bottom);
    return made;
}

} // namespace

TEST(Deviation, ImageInThePlaneDoesNotDeviate) {
    const Deviation deviation = deviationFrom(upright, image({0, 5, 0}, {3, 0, 0}, {0, 0, 2}));
    EXPECT_EQ(deviation.distance, 0.0);
    EXPECT_EQ(deviation.angleDegrees, 0.0);
    EXPECT_EQ(deviation.turnDegrees, 0.0);
}

TEST(Deviation, DistanceIsPositiveInFront) {
    EXPECT_DOUBLE_EQ(deviationFrom(upright, image({0, 4, 0}, {3, 0, 0}, {0, 0, 2})).distance, 1.0);
    EXPECT_DOUBLE_EQ(deviationFrom(upright, image({0, 7, 0}, {3, 0, 0}, {0, 0, 2})).distance, -2.0);
}

TEST(Deviation, DistanceIsThatOfTheFurthestCorner) {
    const Deviation deviation = deviationFrom(upright, image({0, 5, 0}, {4, 3, 0}, {0, 0, 2}));
    EXPECT_DOUBLE_EQ(deviation.distance, -3.0);
    EXPECT_NEAR(deviation.angleDegrees, std::atan2(3.0, 4.0) * 45.0 / std::atan(1.0), 1e-12);
    EXPECT_NEAR(deviation.turnDegrees, 0.0, 1e-12);
}

TEST(Deviation, ImageSeenFromBehindIsAtAHundredAndEighty) {
    EXPECT_DOUBLE_EQ(deviationFrom(upright, image({3, 5, 0}, {-3, 0, 0}, {0, 0, 2})).angleDegrees, 180.0);
}

TEST(Deviation, TurnInThePlaneIsApartFromTheAngle) {
    const Deviation deviation = deviationFrom(upright, image({0, 5, 0}, {1, 0, 1}, {-1, 0, 1}));
    EXPECT_NEAR(deviation.angleDegrees, 0.0, 1e-12);
    EXPECT_NEAR(deviation.turnDegrees, 45.0, 1e-12);
}

TEST(Deviation, TurnIsPositiveAnticlockwise) {
    EXPECT_NEAR(deviationFrom(upright, image({0, 5, 0}, {4, 0, 3}, {-3, 0, 4})).turnDegrees, 36.8698976458,
                1e-9);
    EXPECT_NEAR(deviationFrom(upright, image({0, 5, 0}, {4, 0, -3}, {3, 0, 4})).turnDegrees, -36.8698976458,
                1e-9);
}

TEST(Deviation, LeaningWallsDoNotTurn) {
    const Deviation leaning = deviationFrom(upright, image({0, 5, 0}, {3, 0, 0}, {0, 0.3, 4}));
    EXPECT_NEAR(leaning.angleDegrees, std::atan2(0.3, 4.0) * 45.0 / std::atan(1.0), 1e-12);
    EXPECT_EQ(leaning.turnDegrees, 0.0);
    EXPECT_FALSE(std::signbit(leaning.turnDegrees));
    EXPECT_EQ(deviationFrom(upright, image({0, 5, 0}, {4, 3, 0}, {0, 0, 2})).turnDegrees, 0.0);
    EXPECT_EQ(deviationFrom(upright, image({0, 5, 0}, {3, 0, 0}, {0, 2, 0})).turnDegrees, 0.0); // lies flat
}

TEST(Deviation, PicturesSeenFromBehindAreMirroredAndTurnLikeTheirMirrorImage) {
    const Deviation behind = deviationFrom(upright, image({3, 5, 0}, {-3, 0, 0}, {0, 0, 2}));
    EXPECT_TRUE(behind.isMirrored());
    EXPECT_EQ(behind.turnDegrees, 0.0);
    EXPECT_FALSE(std::signbit(behind.turnDegrees));
    const Deviation turned = deviationFrom(upright, image({3, 5, 0}, {-4, 0, -3}, {-3, 0, 4}));
    EXPECT_TRUE(turned.isMirrored());
    EXPECT_NEAR(turned.turnDegrees, 36.8698976458, 1e-9);
    const Deviation edgeOn = deviationFrom(upright, image({0, 5, 0}, {-1e-8, 1, 0}, {0, 0, 2}));
    EXPECT_GT(edgeOn.angleDegrees, 90.0);
    EXPECT_FALSE(edgeOn.isMirrored());
}

TEST(Deviation, PicturesOnTheirHeadAreTurnedByAHundredAndEighty) {
    const Deviation deviation = deviationFrom(upright, image({3, 5, 2}, {-3, 0, 0}, {0, 0, -2}));
    EXPECT_FALSE(deviation.isMirrored());
    EXPECT_EQ(deviation.turnDegrees, 180.0);
    ImageParam withNegativeZeros;
    withNegativeZeros.setImageCorners({0, 0, -2}, {0, 0, 0}, {-3, -0.0, -0.0});
    EXPECT_EQ(deviationFrom(upright, withNegativeZeros).turnDegrees, 180.0);
}

TEST(Deviation, HeightErrorIsThatOfTheWorstCorner) {
    EXPECT_EQ(deviationFrom(upright, image({0, 5, 0}, {3, 0, 0}, {0, 0, 2})).heightError, 0.0);
    EXPECT_EQ(deviationFrom(upright, image({0, 9, 0}, {3, 2, 0}, {0, 1, 2})).heightError, 0.0);
    const Plane leaning{{10, 5, 2}, {1, 0, 0}, {0, 0.6, 0.8}};
    // at y = 5 and z = 12 the plane's y is 8 above its origin, which lies 10 below
    EXPECT_DOUBLE_EQ(deviationFrom(leaning, image({0, 5, 2}, {3, 0, 0}, {0, 0, 10})).heightError, 2.0);
}

TEST(Deviation, MoreThanHalfAPixelIsVisible) {
    ImageParam image;
    image.setNumberPixelPerUnit(200);
    EXPECT_FALSE(isVisible(0.0025, image));
    EXPECT_FALSE(isVisible(-0.0025, image));
    EXPECT_TRUE(isVisible(0.0026, image));
    EXPECT_TRUE(isVisible(-0.0026, image));
}

TEST(Deviation, DefaultToleranceIsATenthOfAMetreInAnyUnit) {
    EXPECT_DOUBLE_EQ(defaultTolerance(Meters).distance, 0.1);
    EXPECT_DOUBLE_EQ(defaultTolerance(Millimeters).distance, 100.0);
    EXPECT_EQ(defaultTolerance(Feet).angleDegrees, 1.0);
}

TEST(Deviation, SmallAnglesAreExactAtSurveyCoordinates) {
    const Plane plane{{4468215.25, 5333642.5, 510.0}, {1, 0, 0}, {0, 0, 1}};
    const Deviation deviation =
        deviationFrom(plane, image({4468215.25, 5333642.5, 510.0}, {1000, 0.001, 0}, {0, 0, 10}));
    EXPECT_NEAR(deviation.angleDegrees, 1e-6 * 45.0 / std::atan(1.0), 1e-11);
    EXPECT_NEAR(deviation.distance, -0.001, 1e-9);
}

TEST(Deviation, AxesOfAnyLengthGiveTheSameDeviation) {
    const Plane scaled{{10, 5, 2}, {1000, 0, 0}, {0, 0, 1e-6}};
    EXPECT_DOUBLE_EQ(deviationFrom(scaled, image({0, 4, 0}, {3, 0, 0}, {0, 0, 2})).distance, 1.0);
}

} // namespace rasterplan_tool
