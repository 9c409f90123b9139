#pragma once

#include "picture/BinaryFile.h"
#include "picture/Picture.h"

namespace rasterplan_tool {

/// What the first directory of a TIFF file says: classic or BigTIFF, of either byte order. The pixels are not
/// touched: the picture is cut short where a strip or tile reaches beyond the file's end.
/// Throws PictureError when the header or the directory is damaged.
Picture readTiffHeader(BinaryFile& file);

} // namespace rasterplan_tool
