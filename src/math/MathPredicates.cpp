#include "math/MathPredicates.h"

#include <cmath>

namespace rasterplan {

bool isZeroVector(const MathVector3d& v, const MathTol& tolerance) noexcept {
    return v.length() <= tolerance.length();
}

bool isParallel(const MathVector3d& a, const MathVector3d& b, const MathTol& tolerance) {
    if (isZeroVector(a, tolerance) || isZeroVector(b, tolerance))
        return false;
    return isZeroVector(cross(a.normalized(), b.normalized()), tolerance);
}

bool isPerpendicular(const MathVector3d& a, const MathVector3d& b, const MathTol& tolerance) {
    if (isZeroVector(a, tolerance) || isZeroVector(b, tolerance))
        return false;
    return std::abs(dot(a.normalized(), b.normalized())) <= tolerance.length();
}

} // namespace rasterplan
