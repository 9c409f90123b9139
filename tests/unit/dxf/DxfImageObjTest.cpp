#include "dxf/DxfImageObj.h"

#include "math/MathError.h"
#include "support/Images.h"
#include "support/WrittenBytes.h"

#include <gtest/gtest.h>

#include <string>

using namespace rasterplan;
using namespace rasterplan::test;

namespace {

// A picture of 640 x 480 pixels, 64 to the metre.
const ImageParam picture = imageAt({1, 9.5, 3}, {1, 2, 3}, {11, 2, 3}, 64.0, L"C:\\site\\S\u00FCd.png");

constexpr ImageHandles handles{Handle{0x7E}, Handle{0x7F}, Handle{0x80}};

std::string written(const DxfImageObj& object) {
    return writtenBytes([&](OutputBuffer& out) { object.createSection(handles).render(out); });
}

MathMatrix matrixOf(const double (&rows)[4][4]) {
    MathMatrix matrix(4, 4);
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            matrix(row, column) = rows[row][column];
    return matrix;
}

void expectPoint(const MathPoint3d& actual, const MathPoint3d& expected) {
    EXPECT_NEAR(actual.x, expected.x, 1e-12);
    EXPECT_NEAR(actual.y, expected.y, 1e-12);
    EXPECT_NEAR(actual.z, expected.z, 1e-12);
}

} // namespace

TEST(DxfImageObj, WritesItsEntity) {
    EXPECT_EQ(written(DxfImageObj(picture)),
              "0\r\nIMAGE\r\n5\r\n7E\r\n330\r\n2\r\n100\r\nAcDbEntity\r\n8\r\n0\r\n160\r\n140\r\n"
              "100\r\nAcDbRasterImage\r\n90\r\n0\r\n"
              "10\r\n1.00000000000000000\r\n20\r\n2.00000000000000000\r\n30\r\n3.00000000000000000\r\n"
              "11\r\n0.01562500000000000\r\n21\r\n0.00000000000000000\r\n31\r\n0.00000000000000000\r\n"
              "12\r\n0.00000000000000000\r\n22\r\n0.01562500000000000\r\n32\r\n0.00000000000000000\r\n"
              "13\r\n640.00000000000000000\r\n23\r\n480.00000000000000000\r\n"
              "340\r\n7F\r\n70\r\n15\r\n280\r\n0\r\n281\r\n50\r\n282\r\n50\r\n283\r\n0\r\n290\r\n0\r\n"
              "360\r\n80\r\n71\r\n1\r\n91\r\n2\r\n14\r\n-0.5\r\n24\r\n-0.5\r\n"
              "14\r\n639.50000000000000000\r\n24\r\n479.50000000000000000\r\n");
}

TEST(DxfImageObj, TakesHandlesForEntityDefinitionAndReactor) {
    HandleCounter counter(127);
    const ImageHandles taken = DxfImageObj::assignHandles(counter);
    EXPECT_EQ(taken.entity, Handle{128});
    EXPECT_EQ(taken.definition, Handle{129});
    EXPECT_EQ(taken.reactor, Handle{130});
    EXPECT_EQ(counter.last(), 130u);
}

TEST(DxfImageObj, FractionsOfPixelsStay) {
    const auto section = DxfImageObj(imageAt({0, 2, 0}, {0, 0, 0}, {1, 0, 0}, 0.25)).createSection(handles);
    EXPECT_EQ(section.pixelWidth, 0.25);
    EXPECT_EQ(section.clipRight, -0.25);
    EXPECT_EQ(section.pixelU, MathVector3d(4, 0, 0));
}

TEST(DxfImageObj, PixelVectorsAreEdgesDividedByTheirPixels) {
    const std::string record =
        written(DxfImageObj(imageAt({13.7, 5.0, 5.1}, {7.3, 1.7, 3.7}, {7.0, 2.3, 11.0}, 0.37)));
    EXPECT_NE(record.find("11\r\n-0.11060396589049121\r\n21\r\n0.22120793178098250\r\n"
                          "31\r\n2.69136317000195424\r\n12\r\n2.35801603408584048\r\n"
                          "22\r\n1.21585201757551165\r\n32\r\n0.51581600745627743\r\n"),
              std::string::npos)
        << record;
}

TEST(DxfImageObj, LongNumbersAreCutOffAtNinetyNineCharacters) {
    const std::string record = written(DxfImageObj(imageAt({0, 1e90, 0}, {0, 0, 0}, {1e90, 0, 0}, 1.0)));
    const std::size_t begin = record.find("\r\n13\r\n") + 6;
    const std::string size = record.substr(begin, record.find('\r', begin) - begin);
    EXPECT_EQ(size.size(), 99u);
    EXPECT_EQ(size.substr(0, 20), "99999999999999996648");
    EXPECT_EQ(size.substr(89), "4.00000000");
}

TEST(DxfImageObj, MovedImageIsWrittenWhereItLies) {
    DxfImageObj object(picture);
    const DxfImageObj copy = object;
    object.translate({1, 0, 0});
    EXPECT_EQ(object.createSection(handles).insertion, MathPoint3d(2, 2, 3));
    EXPECT_EQ(copy.createSection(handles).insertion, MathPoint3d(1, 2, 3));
}

TEST(DxfImageObj, FrameTakesWorldDirectionsToImageAxes) {
    const DxfImageObj object(imageAt({1, 2, 5}, {1, 2, 3}, {5, 2, 3}));
    EXPECT_EQ(object.getImageFrame(), matrixOf({{1, 0, 0, 0}, {0, 0, 1, 0}, {0, -1, 0, 0}, {0, 0, 0, 1}}));
}

TEST(DxfImageObj, PlaneGoesThroughTheLeftBottomCorner) {
    const MathPlane plane = DxfImageObj(imageAt({1, 2, 5}, {1, 2, 3}, {5, 2, 3})).getImagePlane();
    EXPECT_EQ(plane.normal(), MathVector3d(0, -1, 0));
    EXPECT_EQ(plane.project({7, 8, 9}), MathPoint3d(7, 2, 9));
    EXPECT_THROW(DxfImageObj(imageAt({2, 0, 0}, {0, 0, 0}, {1, 0, 0})).getImagePlane(), MathErrorZerovector);
}

TEST(DxfImageObj, TranslationMovesAllCornersButNotTheFrame) {
    DxfImageObj object(picture);
    const MathMatrix frame = object.getImageFrame();
    object.translate({10, -20, 0.5});
    expectPoint(object.getImageParam().getLeftBottomCorner(), {11, -18, 3.5});
    expectPoint(object.getImageParam().getRightTopCorner(), {21, -10.5, 3.5});
    EXPECT_EQ(object.getImageParam().getImgWidth(), 10);
    EXPECT_EQ(object.getImageParam().getImgHeight(), 7.5);
    EXPECT_EQ(object.getImageFrame(), frame);
    EXPECT_STREQ(object.getImageParam().getImagePath(), picture.getImagePath());
    EXPECT_EQ(object.getImageParam().getNumPixelPerUnit(), 64);
}

TEST(DxfImageObj, TransformTakesAllCornersThroughTheMatrix) {
    DxfImageObj object(imageAt({0, 2, 0}, {0, 0, 0}, {4, 0, 0}));
    // Turns x to y and y to negative x, doubles lengths, moves by (10, 20, 30).
    object.transform(matrixOf({{0, -2, 0, 10}, {2, 0, 0, 20}, {0, 0, 2, 30}, {0, 0, 0, 1}}));
    const ImageParam& image = object.getImageParam();
    expectPoint(image.getLeftBottomCorner(), {10, 20, 30});
    expectPoint(image.getRightTopCorner(), {6, 28, 30});
    expectPoint(image.getImgUVector(), {0, 1, 0});
    expectPoint(image.getImgVVector(), {-1, 0, 0});
    EXPECT_EQ(image.getImgWidth(), 8);
    EXPECT_EQ(image.getImgHeight(), 4);
}

TEST(DxfImageObj, TransformDividesEachCornerByItsWeight) {
    DxfImageObj object(imageAt({0, 2, 0}, {0, 0, 0}, {4, 0, 0}));
    // The weight is 1 + y / 2: 1 along the bottom edge, 2 at the left-top corner.
    object.transform(matrixOf({{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0.5, 0, 1}}));
    EXPECT_EQ(object.getImageParam().getImgWidth(), 4);
    EXPECT_EQ(object.getImageParam().getImgHeight(), 1);
}
