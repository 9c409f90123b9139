#pragma once

namespace rasterplan {

/// The angle of the point (x, y) against the x axis: from -pi to pi radians, with the sign of y. As
/// std::atan2, except that every system gives the same bits: those of the double next to the true angle.
/// Never throws.
double arcTangent(double y, double x) noexcept;

} // namespace rasterplan
