#include "facade/Flatten.h"

#include "facade/AddImage.h"
#include "math/MathError.h"
#include "support/Images.h"

#include <gtest/gtest.h>

#include <string>

using namespace rasterplan;
using namespace rasterplan::test;

namespace {

const MathVector3d alongX(1, 0, 0);
const MathVector3d upwards(0, 0, 1);

/// U is x and V is z: a wall that faces the negative y direction.
ImageParam wall(const TripleDouble& leftBottom, double width, double height) {
    const TripleDouble& corner = leftBottom;
    return imageAt({corner.x, corner.y, corner.z + height}, corner, {corner.x + width, corner.y, corner.z});
}

Drawing drawingOf(const ImageParam& image) {
    Drawing drawing;
    EXPECT_TRUE(addImage(drawing, image));
    return drawing;
}

void expectPoint(const MathPoint3d& actual, const MathPoint3d& expected) {
    EXPECT_NEAR(distance(actual, expected), 0.0, 1e-12) << actual.x << ", " << actual.y << ", " << actual.z;
}

std::wstring viewOf(const Drawing& drawing) {
    DxfSectionRegistry registry;
    registry.fileSection(TopLevelKey::tableVPort, drawing.viewport.createSection());
    drawing.viewport.fillSections(registry);
    return registry.renderPlaceholder(L"#VEXO_TABLE_VPORT#");
}

const ImageParam& imageIn(const Drawing& drawing) {
    return drawing.images.head()->getImageParam();
}

} // namespace

TEST(Flatten, YReadsAsHeight) {
    const Drawing flat = flattened(drawingOf(wall({2, 0, 13}, 4, 2)), {{0, 0, 10}, alongX, upwards});
    expectPoint(imageIn(flat).getLeftBottomCorner(), {2, 13, 0});
    expectPoint(imageIn(flat).getRightTopCorner(), {6, 15, 0});
    expectPoint(flat.lines.head()->start(), {2, 13, 0});
    expectPoint(flat.lines.head()->end(), {6, 13, 0});
}

TEST(Flatten, FrameLiesOnItsPicture) {
    const Drawing flat = flattened(drawingOf(wall({2, 7, 13}, 40, 20)), {{1, 7, 10}, alongX, upwards});
    const MathPoint3d expected[][2] = {
        {{1, 13, 0}, {41, 13, 0}}, {{1, 13, 0}, {1, 33, 0}},  {{41, 13, 0}, {41, 33, 0}},
        {{1, 33, 0}, {41, 33, 0}}, {{-1, 13, 0}, {0, 13, 0}}, {{1, 11, 0}, {1, 12, 0}},
    };
    ASSERT_EQ(flat.lines.count(), 6);
    auto line = flat.lines.begin();
    for (const auto& [start, end] : expected) {
        expectPoint(line->start(), start);
        expectPoint(line->end(), end);
        ++line;
    }
    expectPoint(imageIn(flat).getLeftBottomCorner(), expected[0][0]);
    expectPoint(imageIn(flat).getRightTopCorner(), expected[3][1]);
}

TEST(Flatten, OriginMovesXAndOnlyItsHeightIsGivenBack) {
    const Drawing flat = flattened(drawingOf(wall({102, 205, 13}, 4, 2)), {{100, 200, 10}, alongX, upwards});
    expectPoint(imageIn(flat).getLeftBottomCorner(), {2, 13, -5});
    // The height of the origin goes to y, whatever the axes.
    const Drawing level =
        flattened(drawingOf(levelImage({102, 205, 13}, 4, 2)), {{100, 200, 10}, alongX, {0, 1, 0}});
    expectPoint(imageIn(level).getLeftBottomCorner(), {2, 15, 3});
}

TEST(Flatten, LengthOfTheAxesDoesNotMatter) {
    const Drawing drawing = drawingOf(wall({2, 0, 13}, 4, 2));
    const Drawing flat = flattened(drawing, {{0, 0, 10}, alongX, upwards});
    const Drawing scaled = flattened(drawing, {{0, 0, 10}, {4, 0, 0}, {0, 0, 0.125}});
    EXPECT_EQ(MathPoint3d(imageIn(scaled).getLeftBottomCorner()),
              MathPoint3d(imageIn(flat).getLeftBottomCorner()));
    EXPECT_EQ(scaled.lines.tail()->end(), flat.lines.tail()->end());
    EXPECT_EQ(viewOf(scaled), viewOf(flat));
}

TEST(Flatten, LinesKeepYAndZOfTheirOwnImage) {
    // The level image stands on edge in the flattened drawing, its frame keeps its shape.
    const Drawing flat = flattened(drawingOf(levelImage({1, 2, 3}, 4, 2)), {{0, 0, 0}, alongX, upwards});
    expectPoint(imageIn(flat).getLeftBottomCorner(), {1, 3, -2});
    expectPoint(imageIn(flat).getRightTopCorner(), {5, 3, -4});
    expectPoint(flat.lines.head()->start(), {1, 2, 3});
    expectPoint(flat.lines.head()->end(), {5, 2, 3});
}

TEST(Flatten, ViewIsNotTwisted) {
    const Drawing drawing = drawingOf(wall({2, 0, 13}, 4, 2));
    EXPECT_NE(viewOf(drawing).find(L"\n51\n-90.00000000000000000\n"), std::wstring::npos);
    const std::wstring view = viewOf(flattened(drawing, {{0, 0, 10}, alongX, upwards}));
    EXPECT_NE(view.find(L"\n51\n0.00000000000000000\n"), std::wstring::npos);
    EXPECT_NE(view.find(L"\n16\n0.00000000000000000\n26\n0.00000000000000000\n36\n1.00000000000000000\n"
                        L"17\n4.00000000000000000\n27\n14.00000000000000000\n37\n0.00000000000000000\n"
                        L"40\n2.00000000000000000\n41\n2.00000000000000000\n"),
              std::wstring::npos)
        << testing::PrintToString(view);
}

TEST(Flatten, ImageOnEdgeDoesNotTwistTheView) {
    const std::wstring view =
        viewOf(flattened(drawingOf(levelImage({1, 2, 3}, 4, 2)), {{}, alongX, upwards}));
    EXPECT_NE(view.find(L"\n26\n1.00000000000000000\n36\n0.00000000000000000\n"), std::wstring::npos)
        << testing::PrintToString(view);
    EXPECT_NE(view.find(L"\n51\n0.00000000000000000\n"), std::wstring::npos);
}

TEST(Flatten, KeepsWhatIsNoPlace) {
    ImageParam image = wall({2, 0, 13}, 4, 2);
    image.setImagePath(L"C:\\site\\south.png");
    image.setNumberPixelPerUnit(77);
    image.setDrawingUnit(Feet);
    const Drawing flat = flattened(drawingOf(image), {{0, 0, 10}, alongX, upwards});
    EXPECT_STREQ(imageIn(flat).getImagePath(), L"C:\\site\\south.png");
    EXPECT_EQ(imageIn(flat).getNumPixelPerUnit(), 77);
    EXPECT_EQ(imageIn(flat).getDrawingUnit(), Feet);
    EXPECT_EQ(imageIn(flattened(drawingOf(imageAt({0, 1, 0}, {0, 0, 0}, {1, 0, 0}, 100, nullptr)),
                                {{}, alongX, {0, 1, 0}}))
                  .getImagePath(),
              nullptr);
}

TEST(Flatten, LeavesTheDrawingAsItWas) {
    Drawing drawing = drawingOf(wall({2, 0, 13}, 4, 2));
    ASSERT_TRUE(addImage(drawing, wall({12, 0, 13}, 4, 2)));
    const std::wstring view = viewOf(drawing);
    const Drawing flat = flattened(drawing, {{1, 2, 10}, alongX, upwards});
    EXPECT_EQ(flat.images.count(), 2);
    EXPECT_EQ(flat.lines.count(), 12);
    EXPECT_EQ(drawing.images.count(), 2);
    EXPECT_EQ(drawing.lines.count(), 12);
    EXPECT_EQ(MathPoint3d(imageIn(drawing).getLeftBottomCorner()), MathPoint3d(2, 0, 13));
    EXPECT_EQ(drawing.lines.head()->start(), MathPoint3d(2, 0, 13));
    EXPECT_EQ(viewOf(drawing), view);
}

TEST(Flatten, AxisWithoutLengthIsRefused) {
    const Drawing drawing = drawingOf(wall({2, 0, 13}, 4, 2));
    EXPECT_THROW(flattened(drawing, {{}, {0, 0, 0}, upwards}), MathErrorZerovector);
    EXPECT_THROW(flattened(drawing, {{}, alongX, {0, 0, 0}}), MathErrorZerovector);
}

TEST(Flatten, EqualAxesAreRefused) {
    const Drawing drawing = drawingOf(wall({2, 0, 13}, 4, 2));
    try {
        flattened(drawing, {{}, alongX, alongX});
        ADD_FAILURE() << "the axes were taken";
    } catch (const ErrorNR& error) {
        EXPECT_STREQ(error.what(), "Numerical exception: Singular matrix in routine ludcmp");
    }
}

TEST(Flatten, MissingImageIsAnError) {
    Drawing drawing = drawingOf(wall({2, 0, 13}, 4, 2));
    drawing.images.appendEmpty();
    EXPECT_THROW(flattened(drawing, {{}, alongX, upwards}), ZelkBase::Error);
}
