#include "math/MathVector3d.h"

#include "math/MathError.h"

#include <algorithm>
#include <cmath>

namespace rasterplan {

double MathVector3d::length() const noexcept {
    const double plain = std::sqrt(x * x + y * y + z * z);
    if (plain != 0.0 || *this == MathVector3d())
        return plain;
    const double largest = std::max({std::abs(x), std::abs(y), std::abs(z)});
    const MathVector3d scaled = *this / largest;
    return largest * std::sqrt(dot(scaled, scaled));
}

void MathVector3d::normalize() {
    const double divisor = length();
    if (divisor == 0.0)
        throw MathErrorZerovector(ZelkBase::format(
            L"zero vector in %k01 (%k02, line %k03)",
            {L"MathVector3d::normalize", L"zelkmath\\pub_mathvector3d", ZelkBase::Text(85)}));
    *this = *this / divisor;
}

} // namespace rasterplan
