#include "math/ArcTangent.h"

#include <algorithm>
#include <cmath>

// The standard libraries disagree in the last bit of one angle in a thousand, so that a drawing would depend
// on the system. Here the angle is reckoned with twice the digits, by operations that have the same bits
// everywhere, and rounded once.

namespace rasterplan {
namespace {

// A number as the sum of a double and what that lacks: about 32 decimal digits.
struct Twofold {
    double high;
    double low;
};

// a + b, where a is not the smaller one.
Twofold sumInOrder(double a, double b) noexcept {
    const double sum = a + b;
    return {sum, b - (sum - a)};
}

// Exactly a + b.
Twofold exactSum(double a, double b) noexcept {
    const double sum = a + b;
    const double ofB = sum - a;
    return {sum, (a - (sum - ofB)) + (b - ofB)};
}

// Exactly a * b: both are cut into halves whose products fit into a double.
Twofold exactProduct(double a, double b) noexcept {
    constexpr double cut = 134217729; // 2^27 + 1
    const double aHigh = cut * a - (cut * a - a);
    const double bHigh = cut * b - (cut * b - b);
    const double aLow = a - aHigh;
    const double bLow = b - bHigh;
    const double product = a * b;
    return {product, ((aHigh * bHigh - product) + aHigh * bLow + aLow * bHigh) + aLow * bLow};
}

Twofold operator+(const Twofold& a, const Twofold& b) noexcept {
    const Twofold sum = exactSum(a.high, b.high);
    return sumInOrder(sum.high, sum.low + a.low + b.low);
}

Twofold operator-(const Twofold& a) noexcept {
    return {-a.high, -a.low};
}

Twofold operator*(const Twofold& a, const Twofold& b) noexcept {
    const Twofold product = exactProduct(a.high, b.high);
    return sumInOrder(product.high, product.low + (a.high * b.low + a.low * b.high));
}

Twofold operator/(const Twofold& a, const Twofold& b) noexcept {
    const double first = a.high / b.high;
    const Twofold rest = a + -(b * Twofold{first, 0});
    return sumInOrder(first, rest.high / b.high);
}

Twofold squareRoot(const Twofold& a) noexcept {
    const double first = std::sqrt(a.high);
    const Twofold rest = a + -exactProduct(first, first);
    return sumInOrder(first, rest.high / (2 * first));
}

// The arc tangent of a number from 0 to 1.
Twofold arcTangentOf(Twofold tangent) noexcept {
    // Halving the angle three times brings the tangent below 0.1 ...
    constexpr Twofold one{1, 0};
    for (int i = 0; i < 3; ++i)
        tangent = tangent / (one + squareRoot(one + tangent * tangent));
    // ... where fifteen terms of x - x^3/3 + x^5/5 - ... have more than the digits that are kept.
    const Twofold square = tangent * tangent;
    Twofold sum{0, 0};
    for (int divisor = 29; divisor > 0; divisor -= 2)
        sum = one / Twofold{static_cast<double>(divisor), 0} + -(square * sum);
    const Twofold eighth = tangent * sum;
    return {8 * eighth.high, 8 * eighth.low};
}

constexpr Twofold pi{3.141592653589793116, 1.2246467991473532072e-16};

} // namespace

double arcTangent(double y, double x) noexcept {
    // Angles of zero and infinity are multiples of pi/4, which every system rounds alike.
    if (x == 0 || y == 0 || !std::isfinite(x) || !std::isfinite(y))
        return std::atan2(y, x);

    // So small an angle is its own tangent, also where doubles run out of digits.
    if (x > 0 && std::abs(y / x) < 1e-18)
        return y / x;

    // A power of two keeps every step away from overflow; the quotient stays what it is.
    const int exponent = std::max(std::ilogb(x), std::ilogb(y));
    const double width = std::scalbn(std::abs(x), -exponent);
    const double height = std::scalbn(std::abs(y), -exponent);

    const bool steep = height > width;
    Twofold angle = steep ? arcTangentOf(Twofold{width, 0} / Twofold{height, 0})
                          : arcTangentOf(Twofold{height, 0} / Twofold{width, 0});
    if (steep)
        angle = Twofold{pi.high / 2, pi.low / 2} + -angle;
    if (x < 0)
        angle = pi + -angle;
    return std::copysign(angle.high, y);
}

} // namespace rasterplan
