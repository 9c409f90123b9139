#pragma once

#include "base/Notices.h"
#include "report/Plane.h"
#include "site/Manifest.h"

#include <RasterPlanWriter/ImageParam.h>

#include <ostream>
#include <vector>

namespace rasterplan_tool {

/// Prints a plane and how each image lies to it as aligned tables.
void printPlane(std::ostream& out, const Manifest& manifest, const Plane& plane,
                const std::vector<ImageParam>& images);

/// Prints the same as a JSON object; every number reads back exactly.
void printPlaneAsJson(std::ostream& out, const Manifest& manifest, const Plane& plane,
                      const std::vector<ImageParam>& images);

/// Warns of every image that deviates from the plane by more than the tolerance, and of axes that are not at
/// a right angle.
void checkPlane(const Manifest& manifest, const Plane& plane, const std::vector<ImageParam>& images,
                const Tolerance& tolerance, Notices& notices);

} // namespace rasterplan_tool
