#include "math/MathMatrix.h"

#include "math/MathError.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <utility>

using namespace rasterplan;
using ZelkBase::Text;

namespace {

template <typename Operation>
void expectErrorNR(const Operation& operation, const wchar_t* text) {
    try {
        operation();
        ADD_FAILURE() << "no error: " << Text(text).utf8();
    } catch (const ErrorNR& error) {
        EXPECT_EQ(error.message(), Text(L"Numerical exception: ") + text);
    }
}

// The largest deviation of a square matrix from the identity.
double deviationFromIdentity(const MathMatrix& matrix) {
    double largest = 0;
    for (int row = 0; row < matrix.rows(); ++row)
        for (int column = 0; column < matrix.columns(); ++column)
            largest = std::max(largest, std::abs(matrix(row, column) - (row == column ? 1.0 : 0.0)));
    return largest;
}

MathMatrix randomMatrix(int n, std::mt19937& generator) {
    MathMatrix matrix(n, n);
    for (int row = 0; row < n; ++row)
        for (int column = 0; column < n; ++column)
            matrix(row, column) = static_cast<double>(generator()) / 4294967296.0 - 0.5;
    return matrix;
}

MathMatrix permutation(int n, const int* columns) {
    MathMatrix matrix(n, n);
    for (int row = 0; row < n; ++row)
        matrix(row, columns[row]) = 1.0;
    return matrix;
}

} // namespace

TEST(MathMatrix, IsFilledWithOneValue) {
    MathMatrix matrix(2, 3, 7.0);
    EXPECT_EQ(matrix.rows(), 2);
    EXPECT_EQ(matrix.columns(), 3);
    matrix(1, 2) = 5.0;
    EXPECT_EQ(matrix(0, 2), 7.0);
    EXPECT_EQ(matrix(1, 0), 7.0);
    EXPECT_EQ(matrix(1, 2), 5.0);
    EXPECT_EQ(MathMatrix(1, 1)(0, 0), 0.0);
}

TEST(MathMatrix, CopiesOfAnySizeAreIndependent) {
    for (const int n : {2, 4, 5, 30}) {
        MathMatrix original(n, n, 1.0);
        MathMatrix copy = original;
        EXPECT_TRUE(copy == original);
        copy(n - 1, n - 1) = 2.0;
        EXPECT_FALSE(copy == original);
        EXPECT_EQ(original(n - 1, n - 1), 1.0);
        original = std::move(copy);
        EXPECT_EQ(original(n - 1, n - 1), 2.0);
    }
}

TEST(MathMatrix, EqualityIncludesTheDimensions) {
    EXPECT_FALSE(MathMatrix(2, 3) == MathMatrix(3, 2));
    EXPECT_TRUE(MathMatrix(2, 3) == MathMatrix(2, 3));
}

TEST(MathMatrix, IdentityHasOnesOnTheDiagonal) {
    const MathMatrix identity = MathMatrix::identity4();
    EXPECT_EQ(identity.rows(), 4);
    EXPECT_EQ(identity.columns(), 4);
    EXPECT_EQ(deviationFromIdentity(identity), 0);
}

TEST(MathMatrix, PlacementHasTheAxesAsColumns) {
    const MathMatrix placement = MathMatrix::placement({10, 20, 30}, {1, 2, 3}, {4, 5, 6}, {7, 8, 9});
    const double expected[4][4] = {{1, 4, 7, 10}, {2, 5, 8, 20}, {3, 6, 9, 30}, {0, 0, 0, 1}};
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            EXPECT_EQ(placement(row, column), expected[row][column]) << row << ' ' << column;
    EXPECT_EQ(placement.transform({0, 0, 0}), MathPoint3d(10, 20, 30));
    EXPECT_EQ(placement.transform({0, 1, 0}), MathPoint3d(14, 25, 36));
}

TEST(MathMatrix, InverseOfTheIdentityIsTheIdentity) {
    const MathMatrix inverse = MathMatrix::identity4().inverse();
    EXPECT_TRUE(inverse == MathMatrix::identity4());
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            EXPECT_FALSE(std::signbit(inverse(row, column))) << row << ' ' << column;
}

TEST(MathMatrix, InverseOfAnOrthonormalPlacementIsItsTransposition) {
    const MathVector3d x(0.6, 0.64, 0.48);
    const MathVector3d y(-0.8, 0.48, 0.36);
    const MathVector3d z(0, -0.6, 0.8);
    const MathVector3d origin(500000.25, -5.4e6, 123.5);
    const MathMatrix inverse = MathMatrix::placement({origin.x, origin.y, origin.z}, x, y, z).inverse();
    EXPECT_EQ(inverse.rows(), 4);
    EXPECT_EQ(inverse.columns(), 4);
    const MathVector3d axes[] = {x, y, z};
    for (int row = 0; row < 3; ++row) {
        EXPECT_NEAR(inverse(row, 0), axes[row].x, 1e-15);
        EXPECT_NEAR(inverse(row, 1), axes[row].y, 1e-15);
        EXPECT_NEAR(inverse(row, 2), axes[row].z, 1e-15);
        EXPECT_NEAR(inverse(row, 3), -dot(axes[row], origin), 1e-8);
    }
    EXPECT_EQ(inverse(3, 0), 0);
    EXPECT_EQ(inverse(3, 1), 0);
    EXPECT_EQ(inverse(3, 2), 0);
    EXPECT_EQ(inverse(3, 3), 1);
}

TEST(MathMatrix, InverseHasTheSameBitsEverywhere) {
    const MathMatrix inverse =
        MathMatrix::placement({1.3, -2.1, 0.7}, {0.6, -0.3, 0.7}, {0.2, 0.9, -0.4}, {-0.5, 0.1, 0.8})
            .inverse();
    const double expected[4][4] = {
        {0x1.f763af31586cbp-1, 0x1.a7e827bdc3b8ep-5, 0x1.374e7d2f5bbc6p-1, -0x1.98576e483256cp+0},
        {0x1.9aa8e67fd59bfp-2, 0x1.12e089c50cea7p+0, 0x1.dce52cb57c311p-4, 0x1.a6e9cfa5eb778p+0},
        {-0x1.51ccffab37f81p-1, 0x1.f763af31586cap-2, 0x1.8d69a541e77e3p-1, 0x1.58c1685221c7bp+0},
        {0, 0, 0, 1}};
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            EXPECT_EQ(inverse(row, column), expected[row][column]) << row << ' ' << column;
}

TEST(MathMatrix, InverseUndoesTheMatrixAtEverySize) {
    std::mt19937 generator(20);
    for (int n = 1; n <= 12; ++n) {
        const MathMatrix matrix = randomMatrix(n, generator);
        EXPECT_LT(deviationFromIdentity(matrix * matrix.inverse()), 1e-10) << n;
        EXPECT_LT(deviationFromIdentity(matrix.inverse() * matrix), 1e-10) << n;
    }
}

TEST(MathMatrix, InverseFollowsRowSwaps) {
    const int cycle[] = {1, 2, 3, 0};
    const int backwards[] = {3, 0, 1, 2};
    EXPECT_TRUE(permutation(4, cycle).inverse() == permutation(4, backwards));
    const int wide[] = {4, 2, 0, 5, 1, 3};
    const int wideBack[] = {2, 4, 1, 5, 0, 3};
    EXPECT_TRUE(permutation(6, wide).inverse() == permutation(6, wideBack));
}

TEST(MathMatrix, PivotsAreComparedByTheScaleOfTheirRow) {
    // Unscaled, the first row would be the pivot and 1 would drown in 1e20.
    MathMatrix matrix(2, 2);
    matrix(0, 0) = 10;
    matrix(0, 1) = 1e20;
    matrix(1, 0) = 1;
    matrix(1, 1) = 1;
    const MathMatrix inverse = matrix.inverse();
    EXPECT_DOUBLE_EQ(inverse(0, 0), -1e-20);
    EXPECT_DOUBLE_EQ(inverse(0, 1), 1);
    EXPECT_DOUBLE_EQ(inverse(1, 0), 1e-20);
    EXPECT_DOUBLE_EQ(inverse(1, 1), -1e-19);
}

TEST(MathMatrix, ScalesFollowRowSwaps) {
    // The second row comes first; then the third has to be preferred to the first, in which 1 is little.
    MathMatrix matrix(3, 3);
    matrix(0, 1) = 1;
    matrix(0, 2) = 1e20;
    matrix(1, 0) = 1;
    matrix(2, 1) = 0.5;
    matrix(2, 2) = 1;
    EXPECT_DOUBLE_EQ(matrix.inverse()(1, 0), -2e-20);
}

TEST(MathMatrix, AmongEqualPivotsTheLaterRowWins) {
    MathMatrix matrix(2, 2, 1.0);
    matrix(0, 1) = 1e-20;
    // With the first row as pivot this element would be -1e-20.
    EXPECT_EQ(matrix.inverse()(0, 1), 0);
}

TEST(MathMatrix, RowOfZerosIsSingular) {
    const MathVector3d x(1, 0, 0);
    const MathMatrix matrix = MathMatrix::placement({0, 0, 0}, x, x, {0, 0, 0});
    expectErrorNR([&] { (void)matrix.inverse(); }, L"Singular matrix in routine ludcmp");
}

TEST(MathMatrix, ZeroPivotIsReplacedByATinyOne) {
    EXPECT_EQ(MathMatrix(2, 2, 1.0).inverse()(1, 0), 1 / 1e-20);

    const MathVector3d x(0.48, 0.6, 0.64);
    const MathMatrix inverse = MathMatrix::placement({0, 0, 0}, x, x, {0, 0, 0}).inverse();
    double largest = 0;
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            largest = std::max(largest, std::abs(inverse(row, column)));
    EXPECT_GT(largest, 1e19);
}

TEST(MathMatrix, OnlySquareMatricesHaveAnInverse) {
    expectErrorNR([] { (void)MathMatrix(4, 3, 1.0).inverse(); }, L"Incompatible dimensions");
    expectErrorNR([] { (void)MathMatrix(3, 4, 1.0).inverse(); }, L"Incompatible dimensions");
}

TEST(MathMatrix, TransformDividesByTheFourthResult) {
    MathMatrix matrix = MathMatrix::identity4();
    matrix(3, 3) = 2;
    EXPECT_EQ(matrix.transform({2, 4, 6}), MathPoint3d(1, 2, 3));
    matrix(3, 0) = 1;
    EXPECT_EQ(matrix.transform({2, 4, 8}), MathPoint3d(0.5, 1, 2));
}

TEST(MathMatrix, TransformAddsFromLeftToRight) {
    MathMatrix matrix = MathMatrix::identity4();
    matrix(0, 0) = 1e16;
    matrix(0, 1) = 1;
    matrix(0, 2) = -1e16;
    matrix(0, 3) = 1;
    // (1e16 + 1) - 1e16 loses the 1 of the second product.
    EXPECT_EQ(matrix.transform({1, 1, 1}), MathPoint3d(1, 1, 1));
}

TEST(MathMatrix, TransformNeedsFourByFour) {
    for (const auto& [rows, columns] : {std::pair(3, 4), std::pair(4, 3), std::pair(3, 3), std::pair(5, 5)})
        expectErrorNR([r = rows, c = columns] { (void)MathMatrix(r, c).transform({}); },
                      L"Incompatible dimensions");
}

TEST(MathMatrix, ProductCombinesRowsWithColumns) {
    MathMatrix a(2, 3);
    MathMatrix b(3, 1);
    for (int k = 0; k < 3; ++k) {
        a(0, k) = k + 1;
        a(1, k) = 10 * (k + 1);
        b(k, 0) = k + 4;
    }
    const MathMatrix product = a * b;
    EXPECT_EQ(product.rows(), 2);
    EXPECT_EQ(product.columns(), 1);
    EXPECT_EQ(product(0, 0), 32);
    EXPECT_EQ(product(1, 0), 320);
    expectErrorNR([&] { (void)(b * a); }, L"Incompatible dimensions");
}
