#pragma once

#include "dxf/Drawing.h"
#include "facade/ReferencePlane.h"

namespace rasterplan {

/// A copy of the drawing, flattened: the axes of `plane` become x and y, and y is lifted by the height of its
/// origin. Frames are drawn anew around the images; an image that rounding leaves without a right angle is
/// left out.
///
/// Throws MathErrorZerovector for a zero axis or an edge that vanishes, ErrorNR when both axes are the same
/// coordinate direction, and as addImage does.
Drawing flattened(const Drawing& drawing, const ReferencePlane& plane);

} // namespace rasterplan
