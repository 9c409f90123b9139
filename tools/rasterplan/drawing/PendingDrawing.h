#pragma once

#include "drawing/PendingFile.h"

#include <cstddef>
#include <cstdint>

namespace rasterplan_tool {

/// A drawing in the making.
class PendingDrawing : public PendingFile {
public:
    using PendingFile::PendingFile;

    /// Reads the written drawing back and returns its size in bytes. Writes the viewport's view mode, which
    /// the library writes as a real number, as the integer that some readers insist on; nothing else changes.
    /// Throws ExportFailed when the drawing is not complete, holds fewer than `images` images or definitions
    /// of images, or cannot be changed.
    std::uintmax_t finish(std::size_t images);
};

} // namespace rasterplan_tool
