#pragma once

#include "base/Notices.h"
#include "site/Site.h"

#include <RasterPlanWriter/ImageParam.h>

namespace rasterplan_tool {

/// Warns of every picture that could not be read, that is cut short or whose name ends like that of another
/// format; of every one whose pixel count is off by more than half a pixel from pixels per unit times width
/// or height, since CAD programs show it too small or too large in its frame; and of every path too long for
/// a drawing. `images` are the site's images in order. Pictures that were not read are passed over.
void checkPictures(const Site& site, const std::vector<ImageParam>& images, Notices& notices);

/// Warns of pictures that share a file name and of files that several images show, and notes which images are
/// converted into the site's unit.
void checkManifest(const Manifest& manifest, Notices& notices);

} // namespace rasterplan_tool
