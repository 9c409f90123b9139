#include "dxf/Flattening.h"

#include "math/MathError.h"
#include "support/Images.h"

#include <gtest/gtest.h>

using namespace rasterplan;
using namespace rasterplan::test;

namespace {

const MathVector3d alongX(1, 0, 0);
const MathVector3d upwards(0, 0, 1);

ImageParam flattened(const ImageParam& image, const ReferencePlane& plane) {
    return Flattening(plane).image(DxfImageObj(image)).getImageParam();
}

std::array<DxfLineObj, 6> flattenedFrame(const ImageParam& image, const ReferencePlane& plane) {
    return Flattening(plane).frameLines(DxfImageObj(image));
}

void expectAt(const MathPoint3d& actual, const MathPoint3d& expected) {
    EXPECT_NEAR(distance(actual, expected), 0.0, 1e-12) << actual.x << ", " << actual.y << ", " << actual.z;
}

} // namespace

TEST(Flattening, YReadsAsHeight) {
    const ReferencePlane plane{{0, 0, 10}, alongX, upwards};
    const ImageParam flat = flattened(wallImage({2, 0, 13}, 4, 2), plane);
    expectAt(flat.getLeftBottomCorner(), {2, 13, 0});
    expectAt(flat.getRightTopCorner(), {6, 15, 0});
    const auto frame = flattenedFrame(wallImage({2, 0, 13}, 4, 2), plane);
    expectAt(frame[0].createSection(Handle{}).start, {2, 13, 0});
    expectAt(frame[0].createSection(Handle{}).end, {6, 13, 0});
}

TEST(Flattening, FrameLiesOnItsPicture) {
    const ReferencePlane plane{{1, 7, 10}, alongX, upwards};
    const MathPoint3d expected[][2] = {
        {{1, 13, 0}, {41, 13, 0}}, {{1, 13, 0}, {1, 33, 0}},  {{41, 13, 0}, {41, 33, 0}},
        {{1, 33, 0}, {41, 33, 0}}, {{-1, 13, 0}, {0, 13, 0}}, {{1, 11, 0}, {1, 12, 0}},
    };
    const auto frame = flattenedFrame(wallImage({2, 7, 13}, 40, 20), plane);
    for (std::size_t i = 0; i < frame.size(); ++i) {
        expectAt(frame[i].createSection(Handle{}).start, expected[i][0]);
        expectAt(frame[i].createSection(Handle{}).end, expected[i][1]);
    }
    const ImageParam flat = flattened(wallImage({2, 7, 13}, 40, 20), plane);
    expectAt(flat.getLeftBottomCorner(), expected[0][0]);
    expectAt(flat.getRightTopCorner(), expected[3][1]);
}

TEST(Flattening, OriginMovesXAndOnlyItsHeightIsGivenBack) {
    expectAt(
        flattened(wallImage({102, 205, 13}, 4, 2), {{100, 200, 10}, alongX, upwards}).getLeftBottomCorner(),
        {2, 13, -5});
    // The height of the origin goes to y, whatever the axes.
    expectAt(flattened(levelImage({102, 205, 13}, 4, 2), {{100, 200, 10}, alongX, {0, 1, 0}})
                 .getLeftBottomCorner(),
             {2, 15, 3});
}

TEST(Flattening, LengthOfTheAxesDoesNotMatter) {
    const ImageParam image = wallImage({2, 0, 13}, 4, 2);
    const ReferencePlane unit{{0, 0, 10}, alongX, upwards};
    const ReferencePlane scaled{{0, 0, 10}, {4, 0, 0}, {0, 0, 0.125}};
    EXPECT_EQ(MathPoint3d(flattened(image, scaled).getLeftBottomCorner()),
              MathPoint3d(flattened(image, unit).getLeftBottomCorner()));
    EXPECT_EQ(flattenedFrame(image, scaled)[5].createSection(Handle{}).end,
              flattenedFrame(image, unit)[5].createSection(Handle{}).end);
}

TEST(Flattening, LinesKeepYAndZOfTheirOwnImage) {
    // The level image stands on edge in the flattened drawing, its frame keeps its shape.
    const ReferencePlane plane{{0, 0, 0}, alongX, upwards};
    const ImageParam flat = flattened(levelImage({1, 2, 3}, 4, 2), plane);
    expectAt(flat.getLeftBottomCorner(), {1, 3, -2});
    expectAt(flat.getRightTopCorner(), {5, 3, -4});
    const auto frame = flattenedFrame(levelImage({1, 2, 3}, 4, 2), plane);
    expectAt(frame[0].createSection(Handle{}).start, {1, 2, 3});
    expectAt(frame[0].createSection(Handle{}).end, {5, 2, 3});
}

TEST(Flattening, KeepsWhatIsNoPlace) {
    ImageParam image = wallImage({2, 0, 13}, 4, 2);
    image.setImagePath(L"C:\\site\\south.png");
    image.setNumberPixelPerUnit(77);
    image.setDrawingUnit(Feet);
    const ImageParam flat = flattened(image, {{0, 0, 10}, alongX, upwards});
    EXPECT_STREQ(flat.getImagePath(), L"C:\\site\\south.png");
    EXPECT_EQ(flat.getNumPixelPerUnit(), 77);
    EXPECT_EQ(flat.getDrawingUnit(), Feet);
    EXPECT_EQ(MathPoint3d(image.getLeftBottomCorner()), MathPoint3d(2, 0, 13));
}

// Beside an origin so far away coordinates are multiples of 2.
TEST(Flattening, LeavesOutWhatIsNoRectangleBesideTheOrigin) {
    const ReferencePlane far{{1e16, 0, 0}, alongX, {0, 1, 0}};
    EXPECT_TRUE(Flattening::shows(DxfImageObj(levelImage({0, 0, 0}, 4, 2)), far));
    const DxfImageObj oblique(imageAt({-1.6, 1.2, 0}, {0, 0, 0}, {1.2, 1.6, 0}));
    EXPECT_TRUE(oblique.isRectangle());
    EXPECT_FALSE(Flattening::shows(oblique, far));
    EXPECT_TRUE(Flattening::shows(oblique, {{}, alongX, {0, 1, 0}}));
    EXPECT_THROW(Flattening::shows(DxfImageObj(levelImage({0, 0, 0}, 0.5, 2)), far), MathErrorZerovector);
}

TEST(Flattening, AxisWithoutLengthIsRefused) {
    EXPECT_THROW(Flattening({{}, {0, 0, 0}, upwards}), MathErrorZerovector);
    EXPECT_THROW(Flattening({{}, alongX, {0, 0, 0}}), MathErrorZerovector);
}

TEST(Flattening, EqualAxesAreRefused) {
    try {
        const Flattening flattening({{}, alongX, alongX});
        ADD_FAILURE() << "the axes were taken";
    } catch (const ErrorNR& error) {
        EXPECT_STREQ(error.what(), "Numerical exception: Singular matrix in routine ludcmp");
    }
}
