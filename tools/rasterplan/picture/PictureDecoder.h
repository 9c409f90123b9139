#pragma once

#include "picture/PictureHeader.h"

namespace rasterplan_tool {

/// The picture formats that are decoded.
enum class PictureFormat { Png, Jpeg };

/// Reads the header of a file that begins with the format's signature. Each system has its own decoder.
/// Throws PictureError when the file cannot be opened or its header is damaged.
PixelSize decodePixelSize(const std::filesystem::path& file, PictureFormat format);

} // namespace rasterplan_tool
