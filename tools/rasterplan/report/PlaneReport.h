#pragma once

#include "base/Notices.h"
#include "report/Deviation.h"
#include "site/Manifest.h"

#include <RasterPlanWriter/ImageParam.h>

#include <ostream>
#include <vector>

namespace rasterplan_tool {

/// Prints a plane and how each image lies to it as aligned tables, and a verdict: whether the plane suits the
/// images, within defaultTolerance, which it does not suit, and whether y reads as height.
void printPlane(std::ostream& out, const Manifest& manifest, const Plane& plane,
                const std::vector<ImageParam>& images);

/// Prints the same as a JSON object; every number reads back exactly.
void printPlaneAsJson(std::ostream& out, const Manifest& manifest, const Plane& plane,
                      const std::vector<ImageParam>& images);

/// Warns of every image that deviates from the plane by more than the tolerance, comes out mirrored or on its
/// head, or whose frame will lie more than half a pixel beside its picture; and of axes that are not at a
/// right angle.
void checkPlane(const Manifest& manifest, const Plane& plane, const std::vector<ImageParam>& images,
                const Tolerance& tolerance, Notices& notices);

} // namespace rasterplan_tool
