#pragma once

#include "report/Plane.h"
#include "site/Manifest.h"

#include <RasterPlanWriter/ImageParam.h>
#include <RasterPlanWriter/RasterPlanWriter.h>

#include <string>
#include <vector>

namespace rasterplan_tool {

/// The manifest's images as the library takes them. `paths` are the texts by which the drawing names the
/// pictures, one per image.
/// Throws BadInput with one line for every image that has no width or height.
std::vector<ImageParam> makeImages(const Manifest& manifest, const std::vector<std::wstring>& paths);

/// Adds the images to a drawing. Throws BadInput with one line for every image that is no rectangle,
/// ExportFailed when the library fails.
void addImages(RasterPlanWriter& drawing, const Manifest& manifest, const std::vector<ImageParam>& images);

/// The plane that the library proposes for the images of a drawing.
/// Throws BadInput when they have no common plane.
Plane proposePlane(const RasterPlanWriter& drawing);

} // namespace rasterplan_tool
