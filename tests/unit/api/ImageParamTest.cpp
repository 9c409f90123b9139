#include <RasterPlanWriter/ImageParam.h>

#include "math/MathError.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>
#include <utility>

namespace {

using rasterplan::MathErrorZerovector;

void expectTriple(const TripleDouble& actual, double x, double y, double z) {
    EXPECT_EQ(actual.x, x);
    EXPECT_EQ(actual.y, y);
    EXPECT_EQ(actual.z, z);
}

// Three metres wide and two high, in the xy plane.
ImageParam threeByTwo() {
    ImageParam image(L"south.png");
    image.setImageCorners({0, 2, 0}, {0, 0, 0}, {3, 0, 0});
    return image;
}

void expectPlacedAsThreeByTwo(const ImageParam& image) {
    EXPECT_EQ(image.getImgWidth(), 3.0);
    EXPECT_EQ(image.getImgHeight(), 2.0);
    expectTriple(image.getImgUVector(), 1, 0, 0);
    expectTriple(image.getImgVVector(), 0, 1, 0);
    expectTriple(image.getLeftBottomCorner(), 0, 0, 0);
    expectTriple(image.getViewDir(), 0, 0, 1);
    expectTriple(image.getRightTopCorner(), 3, 2, 0);
}

void expectNotPlaced(const ImageParam& image) {
    EXPECT_EQ(image.getDrawingUnit(), Meters);
    EXPECT_EQ(image.getNumPixelPerUnit(), 100.0);
    EXPECT_EQ(image.getImgWidth(), 0.0);
    EXPECT_EQ(image.getImgHeight(), 0.0);
    expectTriple(image.getImgUVector(), 0, 0, 0);
    expectTriple(image.getImgVVector(), 0, 0, 0);
    expectTriple(image.getLeftBottomCorner(), 0, 0, 0);
    expectTriple(image.getViewDir(), 0, 0, 0);
    expectTriple(image.getRightTopCorner(), 0, 0, 0);
}

} // namespace

TEST(ImageParam, StartsWithoutPathAndPlace) {
    const ImageParam image;
    EXPECT_EQ(image.getImagePath(), nullptr);
    expectNotPlaced(image);
}

TEST(ImageParam, CopiesThePathGivenToIt) {
    std::wstring path = L"C:\\site\\S\u00FCd.png";
    const ImageParam image(path.c_str());
    path.assign(path.size(), L'x');
    EXPECT_STREQ(image.getImagePath(), L"C:\\site\\S\u00FCd.png");
    expectNotPlaced(image);
}

TEST(ImageParam, NullPathIsNotAnEmptyOne) {
    EXPECT_EQ(ImageParam(nullptr).getImagePath(), nullptr);
    EXPECT_STREQ(ImageParam(L"").getImagePath(), L"");
    EXPECT_EQ(ImageParam(ImageParam(nullptr)).getImagePath(), nullptr);
    EXPECT_STREQ(ImageParam(ImageParam(L"")).getImagePath(), L"");
}

TEST(ImageParam, CornersGiveSizeDirectionsAndPlace) {
    expectPlacedAsThreeByTwo(threeByTwo());
}

TEST(ImageParam, WallHasItsOwnAxes) {
    ImageParam image;
    image.setImageCorners({1, 2, 8}, {1, 2, 3}, {1, -2, 3});
    EXPECT_EQ(image.getImgWidth(), 4.0);
    EXPECT_EQ(image.getImgHeight(), 5.0);
    expectTriple(image.getImgUVector(), 0, -1, 0);
    expectTriple(image.getImgVVector(), 0, 0, 1);
    expectTriple(image.getViewDir(), -1, 0, 0);
    expectTriple(image.getLeftBottomCorner(), 1, 2, 3);
    expectTriple(image.getRightTopCorner(), 1, -2, 8);
}

TEST(ImageParam, ViewDirectionOfObliqueEdgesIsNotNormalised) {
    ImageParam image;
    image.setImageCorners({3, 4, 0}, {0, 0, 0}, {7, 0, 0});
    EXPECT_EQ(image.getImgHeight(), 5.0);
    expectTriple(image.getImgVVector(), 0.6, 0.8, 0);
    expectTriple(image.getViewDir(), 0, 0, 0.8);
}

TEST(ImageParam, EdgeWithoutLengthIsRefused) {
    ImageParam image = threeByTwo();
    EXPECT_THROW(image.setImageCorners({5, 5, 5}, {5, 5, 5}, {6, 5, 5}), MathErrorZerovector);
    EXPECT_THROW(image.setImageCorners({5, 6, 5}, {5, 5, 5}, {5, 5, 5}), MathErrorZerovector);
    EXPECT_THROW(image.setImageCorners({5, 5, 5}, {5, 5, 5}, {5, 5, 5}), std::exception);
    expectPlacedAsThreeByTwo(image);
}

TEST(ImageParam, CornersCanBeSetAgain) {
    ImageParam image;
    image.setImageCorners({9, 9, 9}, {1, 2, 3}, {-9, 0, 4});
    image.setImageCorners({0, 2, 0}, {0, 0, 0}, {3, 0, 0});
    expectPlacedAsThreeByTwo(image);
}

TEST(ImageParam, PixelCountsAreNotRounded) {
    ImageParam image;
    image.setImageCorners({0, 0.125, 0}, {0, 0, 0}, {2.5, 0, 0});
    EXPECT_EQ(image.getNumPixelWidth(), 250.0);
    EXPECT_EQ(image.getNumPixelHeight(), 12.5);
    image.setNumberPixelPerUnit(0.5);
    EXPECT_EQ(image.getNumPixelWidth(), 1.25);
}

TEST(ImageParam, ResolutionIsStoredWhateverItIs) {
    ImageParam image;
    for (const double value : {0.0, -1.5, 1e300, std::numeric_limits<double>::infinity()}) {
        image.setNumberPixelPerUnit(value);
        EXPECT_EQ(image.getNumPixelPerUnit(), value);
    }
}

TEST(ImageParam, PixelSizeIsInMillimetres) {
    ImageParam image;
    EXPECT_EQ(image.getPixelSizeInMillimeter(), 10.0);
    image.setDrawingUnit(Millimeters);
    EXPECT_EQ(image.getPixelSizeInMillimeter(), 0.01);
    image.setDrawingUnit(Inches);
    image.setNumberPixelPerUnit(300.0);
    EXPECT_EQ(image.getPixelSizeInMillimeter(), 25.4 / 300.0);
}

TEST(ImageParam, UnknownPixelSizeIsTenMillimetres) {
    ImageParam image;
    image.setDrawingUnit(Millimeters);
    for (const double value : {0.0, -0.0, -100.0, std::numeric_limits<double>::quiet_NaN()}) {
        image.setNumberPixelPerUnit(value);
        EXPECT_EQ(image.getPixelSizeInMillimeter(), 10.0) << value;
    }
    image.setNumberPixelPerUnit(500.0);
    image.setDrawingUnit(Unitless);
    EXPECT_EQ(image.getPixelSizeInMillimeter(), 10.0);
}

TEST(ImageParam, UnitIsTakenOnlyIfItIsKnown) {
    ImageParam image;
    image.setDrawingUnit(USSurveyFeet);
    EXPECT_EQ(image.getDrawingUnit(), USSurveyFeet);
    for (const int value : {22, 23, -1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        image.setDrawingUnit(static_cast<DrawingUnit>(value));
        EXPECT_EQ(image.getDrawingUnit(), USSurveyFeet) << value;
    }
    image.setDrawingUnit(Unitless);
    EXPECT_EQ(image.getDrawingUnit(), Unitless);
}

TEST(ImageParam, PathIsReplacedButNotByNull) {
    ImageParam image(L"first.png");
    image.setImagePath(L"second, and longer.png");
    EXPECT_STREQ(image.getImagePath(), L"second, and longer.png");
    image.setImagePath(nullptr);
    EXPECT_STREQ(image.getImagePath(), L"second, and longer.png");
    image.setImagePath(image.getImagePath());
    EXPECT_STREQ(image.getImagePath(), L"second, and longer.png");
    image.setImagePath(image.getImagePath() + 12);
    EXPECT_STREQ(image.getImagePath(), L"longer.png");
    image.setImagePath(L"");
    EXPECT_STREQ(image.getImagePath(), L"");
}

TEST(ImageParam, CopyIsIndependentOfItsSource) {
    auto source = std::make_unique<ImageParam>(threeByTwo());
    source->setNumberPixelPerUnit(7.0);
    source->setDrawingUnit(Feet);
    ImageParam copy(*source);
    source.reset();
    EXPECT_STREQ(copy.getImagePath(), L"south.png");
    EXPECT_EQ(copy.getNumPixelPerUnit(), 7.0);
    EXPECT_EQ(copy.getDrawingUnit(), Feet);
    expectPlacedAsThreeByTwo(copy);
}

TEST(ImageParam, AssignmentCopiesThePathToo) {
    ImageParam copy(L"gone.png");
    {
        ImageParam source = threeByTwo();
        source.setNumberPixelPerUnit(7.0);
        source.setDrawingUnit(Feet);
        EXPECT_EQ(&(copy = source), &copy);
        EXPECT_STREQ(source.getImagePath(), L"south.png");
        source.setImagePath(L"other.png");
    }
    EXPECT_STREQ(copy.getImagePath(), L"south.png");
    EXPECT_EQ(copy.getNumPixelPerUnit(), 7.0);
    EXPECT_EQ(copy.getDrawingUnit(), Feet);
    expectPlacedAsThreeByTwo(copy);
    copy = ImageParam();
    EXPECT_EQ(copy.getImagePath(), nullptr);
    expectNotPlaced(copy);
}

TEST(ImageParam, CanBeAssignedToItself) {
    ImageParam image = threeByTwo();
    const ImageParam& same = image;
    image = same;
    EXPECT_STREQ(image.getImagePath(), L"south.png");
    expectPlacedAsThreeByTwo(image);
}

TEST(ImageParam, MovesItsPath) {
    ImageParam source = threeByTwo();
    const wchar_t* const path = source.getImagePath();
    ImageParam moved(std::move(source));
    EXPECT_EQ(moved.getImagePath(), path);
    EXPECT_EQ(source.getImagePath(), nullptr); // NOLINT(bugprone-use-after-move): it is left without a path
    expectPlacedAsThreeByTwo(moved);

    ImageParam assigned(L"gone.png");
    assigned = std::move(moved);
    EXPECT_EQ(assigned.getImagePath(), path);
    EXPECT_EQ(moved.getImagePath(), nullptr); // NOLINT(bugprone-use-after-move): it is left without a path
    expectPlacedAsThreeByTwo(assigned);

    ImageParam& same = assigned;
    assigned = std::move(same);
    EXPECT_EQ(assigned.getImagePath(), path);
    expectPlacedAsThreeByTwo(assigned);
}

TEST(ImageParam, RightTopCornerAddsTheEdgesBeforeTheCorner) {
    ImageParam image;
    image.setImageCorners({2.2, 0.9, -1.6}, {0.3, 2.8, -0.3}, {-1.6, -0.3, 1.4});
    const TripleDouble corner = image.getRightTopCorner();
    EXPECT_EQ(corner.x, 0x1.3333333333333p-2);
    EXPECT_EQ(corner.y, -0x1.199999999999ap+1);
    EXPECT_EQ(corner.z, 0x1.9999999999994p-4);
}
