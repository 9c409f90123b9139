#pragma once

#include <RasterPlanWriter/TripleDouble.h>

namespace rasterplan_tool {

/// A plane in space: where a flattened drawing lies, or where a world file counts.
struct Plane {
    TripleDouble origin; ///< In drawing units.
    TripleDouble xAxis;  ///< A direction.
    TripleDouble yAxis;  ///< A direction.
};

/// Whether the axes span a plane: neither is zero, and they are not parallel.
bool spansPlane(const Plane& plane);

} // namespace rasterplan_tool
