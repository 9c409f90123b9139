#include "math/MathPoint3d.h"

#include "math/MathError.h"

#include <cmath>

namespace rasterplan {

double MathPoint3d::operator[](int component) const {
    return const_cast<MathPoint3d&>(*this)[component];
}

double& MathPoint3d::operator[](int component) {
    switch (component) {
    case 0:
        return x;
    case 1:
        return y;
    case 2:
        return z;
    default:
        throw MathError(L"MathPoint3d: Invalid component");
    }
}

double distance(const MathPoint3d& a, const MathPoint3d& b) noexcept {
    const MathVector3d difference = a - b;
    return std::sqrt(dot(difference, difference));
}

} // namespace rasterplan
