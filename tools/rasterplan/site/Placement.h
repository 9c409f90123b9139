#pragma once

#include "site/ImageFiles.h"
#include "site/Manifest.h"

#include <vector>

namespace rasterplan_tool {

/// The three corners and the pixels per unit of every image, in the site's unit, whichever way and in
/// whichever unit they are given. Corners that are given in the site's unit are passed on as they are.
/// `files` are those of the images in order. Throws BadInput with one line for every image that its files
/// cannot place.
std::vector<CornerPlace> placeImages(const Manifest& manifest, const std::vector<ImageFiles>& files);

} // namespace rasterplan_tool
