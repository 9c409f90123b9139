#pragma once

#include "picture/Picture.h"

#include <filesystem>

namespace rasterplan_tool {

/// Reads what a PNG, JPEG, TIFF or BMP file says of itself, without decoding pixels. The format is told by
/// the content, not by the name. Throws PictureError when there is no such file, when it is of another format
/// and when its header is damaged. May be called by several threads at once.
Picture readPicture(const std::filesystem::path& file);

/// As readPicture; the size alone.
PixelSize readPixelSize(const std::filesystem::path& file);

} // namespace rasterplan_tool
