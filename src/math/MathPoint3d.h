#pragma once

#include "math/MathVector3d.h"

namespace rasterplan {

/// A point in space, in drawing units.
struct MathPoint3d {
    double x = 0;
    double y = 0;
    double z = 0;

    constexpr MathPoint3d() noexcept = default;
    constexpr MathPoint3d(double x_, double y_, double z_) noexcept
        : x(x_)
        , y(y_)
        , z(z_) {}
    MathPoint3d(const TripleDouble& triple) noexcept
        : x(triple.x)
        , y(triple.y)
        , z(triple.z) {}
    operator TripleDouble() const noexcept { return {x, y, z}; }

    /// Component 0, 1 or 2. Throws MathError ("MathPoint3d: Invalid component") for any other number.
    double operator[](int component) const;
    double& operator[](int component);

    friend constexpr bool operator==(const MathPoint3d&, const MathPoint3d&) noexcept = default;
};

/// The displacement from b to a.
constexpr MathVector3d operator-(const MathPoint3d& a, const MathPoint3d& b) noexcept {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
constexpr MathPoint3d operator+(const MathPoint3d& point, const MathVector3d& v) noexcept {
    return {point.x + v.x, point.y + v.y, point.z + v.z};
}
constexpr MathPoint3d operator-(const MathPoint3d& point, const MathVector3d& v) noexcept {
    return {point.x - v.x, point.y - v.y, point.z - v.z};
}

/// The square root of the sum of the squared component differences.
double distance(const MathPoint3d& a, const MathPoint3d& b) noexcept;

} // namespace rasterplan
