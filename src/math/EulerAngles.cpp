#include "math/EulerAngles.h"

#include "math/ArcTangent.h"

#include <cfloat>
#include <cmath>
#include <utility>

namespace rasterplan {
namespace {

// Below this the first and third axes count as one: what still tells them apart is noise.
constexpr double gimbalLimit = 16 * FLT_EPSILON;

// An order number taken apart: the axes in turn, and what is to be done to their angles.
struct Order {
    int i, j, k;
    bool odd, repeated, rotating;
};

Order orderOf(int number) noexcept {
    const int i = number / 8;
    const bool odd = (number & 4) != 0;
    return {i, (i + (odd ? 2 : 1)) % 3, (i + (odd ? 1 : 2)) % 3, odd, (number & 2) != 0, (number & 1) != 0};
}

// Angles about axes that follow each other evenly, the first again at the end.
EulerAngles repeatedAxis(const MathMatrix& m, const Order& o) noexcept {
    const double sine = std::sqrt(m(o.i, o.j) * m(o.i, o.j) + m(o.i, o.k) * m(o.i, o.k));
    const double second = arcTangent(sine, m(o.i, o.i));
    if (sine > gimbalLimit)
        return {arcTangent(m(o.i, o.j), m(o.i, o.k)), second, arcTangent(m(o.j, o.i), -m(o.k, o.i))};
    return {arcTangent(-m(o.j, o.k), m(o.j, o.j)), second, 0};
}

// Angles about three axes that follow each other evenly.
EulerAngles threeAxes(const MathMatrix& m, const Order& o) noexcept {
    const double cosine = std::sqrt(m(o.i, o.i) * m(o.i, o.i) + m(o.j, o.i) * m(o.j, o.i));
    const double second = arcTangent(-m(o.k, o.i), cosine);
    if (cosine > gimbalLimit)
        return {arcTangent(m(o.k, o.j), m(o.k, o.k)), second, arcTangent(m(o.j, o.i), m(o.i, o.i))};
    return {arcTangent(-m(o.j, o.k), m(o.j, o.j)), second, 0};
}

} // namespace

std::optional<int> eulerOrder(const std::array<int, 3>& axes, bool rotating) noexcept {
    for (const int axis : axes)
        if (axis < 0 || axis > 2)
            return std::nullopt;
    const int first = rotating ? axes[2] : axes[0];
    const int last = rotating ? axes[0] : axes[2];
    const int second = axes[1];
    if (first == second || second == last)
        return std::nullopt;
    const int parity = second == (first + 1) % 3 ? 0 : 1;
    const int repetition = first == last ? 1 : 0;
    return ((first * 2 + parity) * 2 + repetition) * 2 + (rotating ? 1 : 0);
}

std::optional<EulerAngles> eulerAngles(const MathMatrix& matrix, int order) noexcept {
    if (order < 0 || order > 23 || matrix.rows() < 3 || matrix.columns() < 3)
        return std::nullopt;
    const Order o = orderOf(order);
    EulerAngles angles = o.repeated ? repeatedAxis(matrix, o) : threeAxes(matrix, o);
    if (o.odd)
        angles = {-angles.first, -angles.second, -angles.third};
    if (o.rotating)
        std::swap(angles.first, angles.third);
    // Adding 0 turns -0 into 0.
    return EulerAngles{angles.first + 0.0, angles.second + 0.0, angles.third + 0.0};
}

} // namespace rasterplan
