#pragma once

#include <cstdint>
#include <filesystem>

namespace rasterplan_tool {

/// A drawing in the making: written under another name in the destination's folder, and put in the
/// destination's place only when it is complete. Until then the destination is as it was.
class PendingDrawing {
public:
    /// Prepares to write `output`; a symbolic link is followed, so that it stays a link.
    /// Throws ExportFailed when the folder does not exist and when a folder, a device or a file that may not
    /// be written stands in the place.
    explicit PendingDrawing(const std::filesystem::path& output);

    /// Removes the file in the making unless it was put in place.
    ~PendingDrawing();

    PendingDrawing(const PendingDrawing&) = delete;
    PendingDrawing& operator=(const PendingDrawing&) = delete;

    /// The file to be replaced or created: absolute, links followed.
    const std::filesystem::path& destination() const noexcept { return m_destination; }

    /// The file to write to.
    const std::filesystem::path& temporary() const noexcept { return m_temporary; }

    /// Puts the drawing in place with the permissions of the file that it replaces; returns its size in
    /// bytes. Throws ExportFailed when the drawing does not end as every complete drawing does, and when it
    /// cannot be renamed; the destination is as it was then.
    std::uintmax_t putInPlace();

private:
    std::filesystem::path m_destination;
    std::filesystem::path m_temporary;
};

} // namespace rasterplan_tool
