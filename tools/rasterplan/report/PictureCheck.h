#pragma once

#include "base/Console.h"
#include "site/Manifest.h"

#include <RasterPlanWriter/ImageParam.h>

namespace rasterplan_tool {

/// Warns of every picture that is missing or unreadable, and of every one whose pixel count is off by more
/// than half a pixel from pixels per unit times width or height: CAD programs show it too small or too large
/// in its frame. `images` are the manifest's images in order.
void checkPictures(const Manifest& manifest, const std::vector<ImageParam>& images, Console& console);

/// Warns of pictures that share a file name, and of images with different units.
void checkManifest(const Manifest& manifest, Console& console);

} // namespace rasterplan_tool
