#pragma once

#include "math/MathPoint3d.h"

#include <array>
#include <cassert>
#include <cstddef>
#include <utility>
#include <variant>
#include <vector>

namespace rasterplan {

/// A matrix of doubles. Points are column vectors, so the columns of a placement are axes. One of at most 16
/// elements needs no memory of its own, because every line of a drawing holds one.
class MathMatrix {
public:
    /// A matrix filled with one value; dimensions from 0. Throws std::bad_alloc.
    MathMatrix(int rows, int columns, double fill = 0.0);

    /// 1 on the diagonal, 0 elsewhere.
    static MathMatrix identity4();

    /// Columns X, Y, Z and origin, last row (0, 0, 0, 1): takes local coordinates to world coordinates.
    static MathMatrix placement(const MathPoint3d& origin, const MathVector3d& xAxis,
                                const MathVector3d& yAxis, const MathVector3d& zAxis);

    int rows() const noexcept { return m_rows; }
    int columns() const noexcept { return m_columns; }

    /// The element at a row and column, both from 0 and below the dimensions.
    double operator()(int row, int column) const noexcept { return elements()[index(row, column)]; }
    double& operator()(int row, int column) noexcept { return elements()[index(row, column)]; }

    /// The inverse of a square matrix, by LU decomposition with scaled partial pivoting. Throws ErrorNR:
    /// "Singular matrix in routine ludcmp" when a row holds only zeros, "Incompatible dimensions" when the
    /// matrix is not square. Any other singular matrix gives very large elements.
    MathMatrix inverse() const;

    /// (x, y, z, 1) multiplied by a 4x4 matrix, the first three results divided by the fourth. Throws ErrorNR
    /// ("Incompatible dimensions") for a matrix of another size.
    MathPoint3d transform(const MathPoint3d& point) const;

    /// The matrix product. Throws ErrorNR ("Incompatible dimensions") unless a has as many columns as b has
    /// rows.
    friend MathMatrix operator*(const MathMatrix& a, const MathMatrix& b);

    /// Same dimensions and equal elements.
    friend bool operator==(const MathMatrix& a, const MathMatrix& b) noexcept;

private:
    using Small = std::array<double, 16>;
    using Large = std::vector<double>;

    std::size_t index(int row, int column) const noexcept {
        assert(row >= 0 && row < m_rows && column >= 0 && column < m_columns);
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(m_columns) +
               static_cast<std::size_t>(column);
    }
    std::size_t size() const noexcept {
        return static_cast<std::size_t>(m_rows) * static_cast<std::size_t>(m_columns);
    }
    const double* elements() const noexcept {
        const Small* small = std::get_if<Small>(&m_elements);
        return small ? small->data() : std::get_if<Large>(&m_elements)->data();
    }
    double* elements() noexcept { return const_cast<double*>(std::as_const(*this).elements()); }

    int m_rows;
    int m_columns;
    std::variant<Small, Large> m_elements;
};

} // namespace rasterplan
