#include "dxf/DxfViewPortObj.h"

#include "math/MathError.h"
#include "support/Images.h"
#include "template/DxfError.h"

#include <gtest/gtest.h>

#include <limits>
#include <ostream>

using namespace rasterplan;
using namespace rasterplan::test;

namespace {

// What the viewport writes.
struct View {
    MathVector3d direction;
    MathPoint3d target;
    double twist;
    double height;
    double ratio;

    friend bool operator==(const View&, const View&) = default;
    friend void PrintTo(const View& view, std::ostream* out) {
        *out << "direction " << view.direction.x << ' ' << view.direction.y << ' ' << view.direction.z
             << ", target " << view.target.x << ' ' << view.target.y << ' ' << view.target.z << ", twist "
             << view.twist << ", height " << view.height << ", ratio " << view.ratio;
    }
};

View viewOf(const DxfViewPortObj& viewport) {
    const DxfSectionTable_VPORT section = viewport.createSection();
    return {section.direction, section.target, section.twist, section.height, section.ratio};
}

// U is x and V is z: a wall that faces the negative y direction.
ImageParam wall(const TripleDouble& leftBottom, double width, double height) {
    const TripleDouble& corner = leftBottom;
    return imageAt({corner.x, corner.y, corner.z + height}, corner, {corner.x + width, corner.y, corner.z});
}

} // namespace

TEST(DxfViewPortObj, ShowsASingleImage) {
    DxfViewPortObj viewport;
    viewport.addImage(levelImage({0, 0, 0}, 4, 2));
    EXPECT_EQ(viewOf(viewport), (View{{0, 0, 1}, {2, 1, 0}, 0, 2, 2}));
}

TEST(DxfViewPortObj, SecondImageWidensTheView) {
    DxfViewPortObj viewport;
    viewport.addImage(levelImage({0, 0, 0}, 4, 2));
    viewport.addImage(levelImage({6, 0, 0}, 4, 2));
    EXPECT_EQ(viewOf(viewport), (View{{0, 0, 1}, {5, 1, 0}, 0, 2, 5}));
}

TEST(DxfViewPortObj, TargetLiesBetweenTheDepthsOfTheImages) {
    DxfViewPortObj viewport;
    viewport.addImage(levelImage({0, 0, 2}, 4, 2));
    viewport.addImage(levelImage({0, 0, 8}, 4, 4));
    EXPECT_EQ(viewOf(viewport), (View{{0, 0, 1}, {2, 2, 5}, 0, 4, 1}));
}

TEST(DxfViewPortObj, LooksAtAWallFromItsFront) {
    DxfViewPortObj viewport;
    viewport.addImage(wall({1, 2, 3}, 4, 2));
    EXPECT_EQ(viewOf(viewport), (View{{0, -1, 0}, {3, 2, 4}, -90, 2, 2}));
}

TEST(DxfViewPortObj, FirstImageDecidesDirectionAndTwist) {
    DxfViewPortObj viewport;
    viewport.addImage(wall({1, 2, 3}, 4, 2));
    viewport.addImage(levelImage({1, 2, 3}, 8, 1));
    const View view = viewOf(viewport);
    EXPECT_EQ(view.direction, MathVector3d(0, -1, 0));
    EXPECT_EQ(view.twist, -90);
    EXPECT_EQ(view.ratio, 4);
}

TEST(DxfViewPortObj, DegreesComeFromOneFactor) {
    DxfViewPortObj viewport;
    viewport.addImage(imageAt({-6.8, -3.0, 4.0}, {1.5, -5.3, 2.0}, {1.2, -4.5, -0.8}));
    const View view = viewOf(viewport);
    EXPECT_EQ(view.twist, -37.94947690438901589); // times 180 and then by pi it ends on 0878
    EXPECT_EQ(view.target, MathPoint3d(-2.8000000000000016, -3.74999999999999956, 1.59999999999999987));
}

TEST(DxfViewPortObj, FlatImageIsNotTwisted) {
    DxfViewPortObj viewport;
    viewport.addImageFlat(wall({1, 2, 3}, 4, 2));
    EXPECT_EQ(viewOf(viewport), (View{{0, -1, 0}, {3, 2, 4}, 0, 2, 2}));
}

TEST(DxfViewPortObj, WithoutImagesShowsTheEmptyBox) {
    EXPECT_EQ(viewOf(DxfViewPortObj()), (View{{0, 0, 0}, {0, 0, 0}, 0, 8589934590, 1}));
}

TEST(DxfViewPortObj, PlaneThatIsNotParallelToAKnownDirectionIsRefused) {
    // The first image gives a direction, but none of its corners is a number in its plane.
    const double nan = std::numeric_limits<double>::quiet_NaN();
    DxfViewPortObj viewport;
    viewport.addImage(imageAt({1, 3, 3}, {1, 2, 3}, {nan, 2, 3}));
    try {
        viewport.addImage(levelImage({0, 0, 0}, 4, 2));
        ADD_FAILURE() << "the image was taken";
    } catch (const DxfError& error) {
        EXPECT_STREQ(error.what(), "DxfViewPortObj: Non parallel plane not allowed.");
    }
}

TEST(DxfViewPortObj, SingularFrameIsRefused) {
    DxfViewPortObj viewport;
    EXPECT_THROW(viewport.addImage(imageAt({2, 0, 0}, {0, 0, 0}, {1, 0, 0})), ErrorNR);
}
