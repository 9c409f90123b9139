#pragma once

#include "picture/BinaryFile.h"

namespace rasterplan_tool {

/// Whether a PNG file reaches its last chunk; whatever stands behind that does not count. Throws PictureError
/// when the system cannot read.
bool hasPngEnd(BinaryFile& file);

/// Whether a JPEG file reaches its end marker, the one of a preview in its header aside; whatever stands
/// behind does not count. Reads files to their end that have another one. Throws PictureError when the system
/// cannot read.
bool hasJpegEnd(BinaryFile& file);

} // namespace rasterplan_tool
