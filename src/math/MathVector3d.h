#pragma once

#include <RasterPlanWriter/TripleDouble.h>

namespace rasterplan {

/// A direction or displacement in space.
struct MathVector3d {
    double x = 0;
    double y = 0;
    double z = 0;

    constexpr MathVector3d() noexcept = default;
    constexpr MathVector3d(double x_, double y_, double z_) noexcept
        : x(x_)
        , y(y_)
        , z(z_) {}
    MathVector3d(const TripleDouble& triple) noexcept
        : x(triple.x)
        , y(triple.y)
        , z(triple.z) {}
    operator TripleDouble() const noexcept { return {x, y, z}; }

    /// The square root of the sum of squares. Squares that vanish do not make it 0: only the zero vector has
    /// length 0.
    double length() const noexcept;

    /// Divides each component by the length. Throws MathErrorZerovector when the length is exactly 0.
    void normalize();

    /// A normalised copy. Throws as normalize() does.
    MathVector3d normalized() const {
        MathVector3d copy = *this;
        copy.normalize();
        return copy;
    }

    constexpr MathVector3d operator-() const noexcept { return {-x, -y, -z}; }
    friend constexpr bool operator==(const MathVector3d&, const MathVector3d&) noexcept = default;
};

constexpr MathVector3d operator+(const MathVector3d& a, const MathVector3d& b) noexcept {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
constexpr MathVector3d operator-(const MathVector3d& a, const MathVector3d& b) noexcept {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
constexpr MathVector3d operator*(const MathVector3d& v, double factor) noexcept {
    return {v.x * factor, v.y * factor, v.z * factor};
}
constexpr MathVector3d operator*(double factor, const MathVector3d& v) noexcept {
    return v * factor;
}
constexpr MathVector3d operator/(const MathVector3d& v, double divisor) noexcept {
    return {v.x / divisor, v.y / divisor, v.z / divisor};
}

/// The cross product a x b.
constexpr MathVector3d cross(const MathVector3d& a, const MathVector3d& b) noexcept {
    return {a.y * b.z - a.z * b.y, b.x * a.z - a.x * b.z, a.x * b.y - b.x * a.y};
}

/// The dot product.
constexpr double dot(const MathVector3d& a, const MathVector3d& b) noexcept {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

} // namespace rasterplan
