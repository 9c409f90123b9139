#pragma once

#include "drawing/TemporaryFile.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>

namespace rasterplan_tool {

/// A drawing in the making: written under another name in the destination's folder, and put in the
/// destination's place only when it is complete. Until then the destination is as it was; given up or
/// interrupted, the drawing in the making vanishes.
class PendingDrawing {
public:
    /// Prepares to write `output`; a symbolic link is followed, so that it stays a link.
    /// Throws ExportFailed when the folder does not exist and when a folder, a device or a file that may not
    /// be written stands in the place.
    explicit PendingDrawing(const std::filesystem::path& output);

    /// The file to be replaced or created: absolute, links followed.
    const std::filesystem::path& destination() const noexcept { return m_destination; }

    /// The file to write to.
    const std::filesystem::path& temporary() const noexcept { return m_temporary.path(); }

    /// Reads the written drawing back and returns its size in bytes. Writes the viewport's view mode, which
    /// the library writes as a real number, as the integer that some readers insist on; nothing else changes.
    /// Throws ExportFailed when the drawing is not complete, holds fewer than `images` images or definitions
    /// of images, or cannot be changed.
    std::uintmax_t finish(std::size_t images);

    /// Puts the drawing in place with the permissions and, where the user may do that, the owner of the file
    /// that it replaces. Throws ExportFailed when that fails; the destination is as it was then.
    void putInPlace();

private:
    std::filesystem::path m_destination;
    TemporaryFile m_temporary;
};

} // namespace rasterplan_tool
