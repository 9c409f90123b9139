#pragma once

#include "math/MathMatrix.h"

#include <array>
#include <optional>

namespace rasterplan {

/// Three rotation angles in radians, in the order of the axes that the order number stands for.
struct EulerAngles {
    double first = 0;
    double second = 0;
    double third = 0;
};

/// The number of an order of axes (0, 1, 2 for x, y, z): ((axis * 2 + parity) * 2 + repetition) * 2 + frame.
/// The frame is static or rotating with the body. Turning about the body's own axes is turning about the
/// static ones in reverse, so a rotating triple is numbered by its last axis. Parity is 0 where the next axis
/// follows as y follows x, z follows y and x follows z; repetition is 1 where the third axis is the first
/// again. Nothing when an axis is out of range or the same axis stands twice in a row.
std::optional<int> eulerOrder(const std::array<int, 3>& axes, bool rotating) noexcept;

/// The angles, each from -pi to pi, whose rotations give the upper left 3x3 part of `matrix`, a rotation. The
/// second is from -pi/2 to pi/2 about a third axis, and where the first axis comes again from 0 to pi in an
/// even order and from -pi to 0 in an odd one. Where the first and last axes coincide in space only their
/// common angle is determined; it goes to the first in a static frame and to the third in a rotating one, and
/// the other is 0. A zero angle is never negative. Nothing when the order is not 0 to 23 or the matrix has
/// fewer than three rows or columns.
std::optional<EulerAngles> eulerAngles(const MathMatrix& matrix, int order) noexcept;

} // namespace rasterplan
