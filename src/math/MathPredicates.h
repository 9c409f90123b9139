#pragma once

#include "math/MathTol.h"
#include "math/MathVector3d.h"

namespace rasterplan {

/// Whether the vector is no longer than the length tolerance.
bool isZeroVector(const MathVector3d& v, const MathTol& tolerance = MathTol()) noexcept;

/// Whether the vectors point the same or opposite ways: the cross product of their unit vectors is no longer
/// than the length tolerance. A zero vector is parallel to none, and neither is one with a NaN.
bool isParallel(const MathVector3d& a, const MathVector3d& b, const MathTol& tolerance = MathTol());

/// Whether the absolute dot product of the unit vectors is at most the length tolerance. A zero vector is
/// perpendicular to none, and neither is one with a NaN.
bool isPerpendicular(const MathVector3d& a, const MathVector3d& b, const MathTol& tolerance = MathTol());

} // namespace rasterplan
