#include "dxf/DxfLineObj.h"

#include "support/WrittenBytes.h"

#include <gtest/gtest.h>

using namespace rasterplan;
using namespace rasterplan::test;

namespace {

// Scales x, y and z.
MathMatrix scaling(double x, double y, double z) {
    return MathMatrix::placement({}, {x, 0, 0}, {0, y, 0}, {0, 0, z});
}

} // namespace

TEST(DxfLineObj, WritesHandleAndEndPoints) {
    const DxfLineObj object({0, 0, 0}, {1, 2, 3});
    EXPECT_EQ(writtenBytes([&](OutputBuffer& out) { object.createSection(Handle{0x7E}).render(out); }),
              "0\r\nLINE\r\n5\r\n7E\r\n100\r\nAcDbEntity\r\n8\r\n0\r\n100\r\nAcDbLine\r\n"
              "10\r\n0.00000000000000000\r\n20\r\n0.00000000000000000\r\n30\r\n0.00000000000000000\r\n"
              "11\r\n1.00000000000000000\r\n21\r\n2.00000000000000000\r\n31\r\n3.00000000000000000\r\n");
}

TEST(DxfLineObj, TakesOneHandle) {
    HandleCounter handles(125);
    EXPECT_EQ(DxfLineObj::assignHandles(handles), Handle{126});
    EXPECT_EQ(DxfLineObj::assignHandles(handles), Handle{127});
    EXPECT_EQ(handles.last(), 127u);
}

TEST(DxfLineObj, IdentityTransformChangesNothing) {
    DxfLineObj object({1, 2, 3}, {-4, 5, -6});
    object.transform(MathMatrix::identity4(), MathMatrix::identity4());
    EXPECT_EQ(object.createSection(Handle{}).start, MathPoint3d(1, 2, 3));
    EXPECT_EQ(object.createSection(Handle{}).end, MathPoint3d(-4, 5, -6));
}

TEST(DxfLineObj, OnlyXComesFromTheMatrix) {
    DxfLineObj object({1, 2, 3}, {-4, 5, -6});
    object.transform(scaling(2, 7, 7), MathMatrix::identity4());
    EXPECT_EQ(object.createSection(Handle{}).start, MathPoint3d(2, 2, 3));
    EXPECT_EQ(object.createSection(Handle{}).end, MathPoint3d(-8, 5, -6));
}

TEST(DxfLineObj, YAndZComeFromTheFrame) {
    DxfLineObj object({1, 2, 3}, {-4, 5, -6});
    object.transform(MathMatrix::placement({1, 9, 9}, {1, 0, 0}, {2, 0, 0}, {3, 0, 0}), scaling(9, 10, 100));
    EXPECT_EQ(object.createSection(Handle{}).start, MathPoint3d(1 + 4 + 9 + 1, 20, 300));
    EXPECT_EQ(object.createSection(Handle{}).end, MathPoint3d(-4 + 10 - 18 + 1, 50, -600));
}

TEST(DxfLineObj, EachMatrixDividesByItsOwnWeight) {
    MathMatrix matrix = MathMatrix::identity4();
    matrix(3, 3) = 2;
    MathMatrix frame = MathMatrix::identity4();
    frame(3, 3) = 4;
    DxfLineObj object({8, 8, 8}, {16, 16, 16});
    object.transform(matrix, frame);
    EXPECT_EQ(object.createSection(Handle{}).start, MathPoint3d(4, 2, 2));
    EXPECT_EQ(object.createSection(Handle{}).end, MathPoint3d(8, 4, 4));
}

TEST(DxfLineObj, TranslationMovesBothEnds) {
    DxfLineObj object({0, 0, 0}, {1, 2, 3});
    object.translate({1, 1, 1});
    EXPECT_EQ(object.createSection(Handle{}).start, MathPoint3d(1, 1, 1));
    EXPECT_EQ(object.createSection(Handle{}).end, MathPoint3d(2, 3, 4));
}
