#pragma once

#include "picture/Picture.h"

#include <cstdio>

namespace rasterplan_tool {

/// The size of a PNG or JPEG picture, from the header of an open file that begins with the format's
/// signature. Each system has its own decoder. Throws PictureError when the header is damaged.
PixelSize decodePixelSize(std::FILE* file, PictureFormat format);

} // namespace rasterplan_tool
