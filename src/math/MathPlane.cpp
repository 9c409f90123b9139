#include "math/MathPlane.h"

#include "math/MathError.h"

namespace rasterplan {
namespace {

double sumOfProducts(const MathVector3d& normal, const MathPoint3d& point) noexcept {
    return normal.x * point.x + normal.y * point.y + normal.z * point.z;
}

} // namespace

MathPlane::MathPlane(const MathPoint3d& point, const MathVector3d& normal) {
    if (normal.length() == 0.0)
        throw MathErrorZerovector(L"MathPlane: Normal is zero vector >");
    m_normal = normal.normalized();
    m_d = -sumOfProducts(m_normal, point);
}

MathPoint3d MathPlane::project(const MathPoint3d& point) const noexcept {
    const double t = (sumOfProducts(m_normal, point) + m_d) / dot(m_normal, m_normal);
    return point - m_normal * t;
}

} // namespace rasterplan
