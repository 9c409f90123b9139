#pragma once

#include "math/MathPoint3d.h"

namespace rasterplan {

/// The plane of all points with ax + by + cz + d = 0.
class MathPlane {
public:
    /// The plane through `point`. Throws MathErrorZerovector ("MathPlane: Normal is zero vector >") when the
    /// length of the normal is exactly 0.
    MathPlane(const MathPoint3d& point, const MathVector3d& normal);

    double a() const noexcept { return m_normal.x; }
    double b() const noexcept { return m_normal.y; }
    double c() const noexcept { return m_normal.z; }
    double d() const noexcept { return m_d; }

    /// The unit normal (a, b, c).
    const MathVector3d& normal() const noexcept { return m_normal; }

    /// The point of the plane that is nearest to `point`.
    MathPoint3d project(const MathPoint3d& point) const noexcept;

private:
    MathVector3d m_normal;
    double m_d = 0;
};

} // namespace rasterplan
