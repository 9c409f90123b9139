#include "math/MathMatrix.h"

#include "math/MathError.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

namespace rasterplan {
namespace {

// Takes the place of a pivot that is exactly 0.
constexpr double smallestPivot = 1e-20;

// Subtracts from b(row, column) the products of a's row with b's column from `first` to before `last`. One
// by one and in this order: it decides the last digits of every inverse.
void eliminate(const MathMatrix& a, MathMatrix& b, int row, int column, int first, int last) {
    double value = b(row, column);
    for (int k = first; k < last; ++k)
        value -= a(row, k) * b(k, column);
    b(row, column) = value;
}

void swapRows(MathMatrix& matrix, int a, int b) {
    for (int column = 0; column < matrix.columns(); ++column)
        std::swap(matrix(a, column), matrix(b, column));
}

// 1 / the largest absolute element of each row.
std::vector<double> rowScales(const MathMatrix& matrix) {
    std::vector<double> scales;
    for (int row = 0; row < matrix.rows(); ++row) {
        double largest = 0.0;
        for (int column = 0; column < matrix.columns(); ++column)
            largest = std::max(largest, std::abs(matrix(row, column)));
        if (largest == 0.0)
            throw ErrorNR(L"Singular matrix in routine ludcmp");
        scales.push_back(1.0 / largest);
    }
    return scales;
}

// The row at or below `column` that serves best as its pivot; the later one among equals.
int pivotRow(const MathMatrix& lu, const std::vector<double>& scales, int column) {
    int best = column;
    double largest = 0.0;
    for (int row = column; row < lu.rows(); ++row) {
        const double candidate = scales[static_cast<std::size_t>(row)] * std::abs(lu(row, column));
        if (candidate >= largest) {
            largest = candidate;
            best = row;
        }
    }
    return best;
}

// Replaces a square matrix by its factors: L below the diagonal, whose own diagonal is 1, and U from the
// diagonal on, column by column (Crout). Returns which row of the matrix stands in each row of the factors.
std::vector<int> decompose(MathMatrix& matrix) {
    const int n = matrix.rows();
    std::vector<double> scales = rowScales(matrix);
    std::vector<int> order(scales.size());
    std::iota(order.begin(), order.end(), 0);

    for (int column = 0; column < n; ++column) {
        for (int row = 0; row < n; ++row)
            eliminate(matrix, matrix, row, column, 0, std::min(row, column));

        if (const int pivot = pivotRow(matrix, scales, column); pivot != column) {
            const auto from = static_cast<std::size_t>(pivot);
            const auto to = static_cast<std::size_t>(column);
            swapRows(matrix, pivot, column);
            std::swap(order[from], order[to]);
            std::swap(scales[from], scales[to]);
        }
        if (matrix(column, column) == 0.0)
            matrix(column, column) = smallestPivot;

        const double factor = 1.0 / matrix(column, column);
        for (int row = column + 1; row < n; ++row)
            matrix(row, column) *= factor;
    }
    return order;
}

[[noreturn]] void refuseDimensions() {
    throw ErrorNR(L"Incompatible dimensions");
}

} // namespace

MathMatrix::MathMatrix(int rows, int columns, double fill)
    : m_rows(rows)
    , m_columns(columns) {
    assert(rows >= 0 && columns >= 0);
    if (size() > std::tuple_size_v<Small>)
        m_elements.emplace<Large>(size(), fill);
    else
        std::get<Small>(m_elements).fill(fill);
}

MathMatrix MathMatrix::identity4() {
    return placement({}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1});
}

MathMatrix MathMatrix::placement(const MathPoint3d& origin, const MathVector3d& xAxis,
                                 const MathVector3d& yAxis, const MathVector3d& zAxis) {
    MathMatrix matrix(4, 4);
    matrix.m_elements = Small{xAxis.x, yAxis.x, zAxis.x, origin.x, //
                              xAxis.y, yAxis.y, zAxis.y, origin.y, //
                              xAxis.z, yAxis.z, zAxis.z, origin.z, //
                              0,       0,       0,       1};
    return matrix;
}

MathMatrix MathMatrix::inverse() const {
    if (m_rows != m_columns)
        refuseDimensions();
    MathMatrix lu = *this;
    const std::vector<int> order = decompose(lu);

    MathMatrix result(m_rows, m_columns);
    for (int first = 0; first < m_rows; ++first) {
        // Row `first` of the factors is where the unit vector of this column has its 1; above it all stays 0.
        const int column = order[static_cast<std::size_t>(first)];
        result(first, column) = 1.0;
        for (int row = first + 1; row < m_rows; ++row)
            eliminate(lu, result, row, column, first, row);
        for (int row = m_rows - 1; row >= 0; --row) {
            eliminate(lu, result, row, column, row + 1, m_rows);
            result(row, column) /= lu(row, row);
        }
    }
    return result;
}

MathPoint3d MathMatrix::transform(const MathPoint3d& point) const {
    if (m_rows != 4 || m_columns != 4)
        refuseDimensions();
    const double* const m = elements();
    const auto row = [&](const double* r) { return r[0] * point.x + r[1] * point.y + r[2] * point.z + r[3]; };
    const double divisor = row(m + 12);
    return {row(m) / divisor, row(m + 4) / divisor, row(m + 8) / divisor};
}

MathMatrix operator*(const MathMatrix& a, const MathMatrix& b) {
    if (a.m_columns != b.m_rows)
        refuseDimensions();
    MathMatrix product(a.m_rows, b.m_columns);
    for (int row = 0; row < a.m_rows; ++row)
        for (int column = 0; column < b.m_columns; ++column)
            for (int k = 0; k < a.m_columns; ++k)
                product(row, column) += a(row, k) * b(k, column);
    return product;
}

bool operator==(const MathMatrix& a, const MathMatrix& b) noexcept {
    return a.m_rows == b.m_rows && a.m_columns == b.m_columns &&
           std::equal(a.elements(), a.elements() + a.size(), b.elements());
}

} // namespace rasterplan
