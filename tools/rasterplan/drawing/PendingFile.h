#pragma once

#include "drawing/TemporaryFile.h"

#include <filesystem>

namespace rasterplan_tool {

/// What messages call a file that is written.
struct PendingFileWords {
    const char* kind = "drawing";
    const char* example = "site.dxf"; ///< A name that such a file may have.
};

/// A file in the making: written under another name in the destination's folder, and put in the destination's
/// place only when it is complete. Until then the destination is as it was; given up or interrupted, the file
/// in the making vanishes.
class PendingFile {
public:
    /// Prepares to write `output`; a symbolic link is followed, so that it stays a link.
    /// Throws ExportFailed when the folder does not exist and when a folder, a device or a file that may not
    /// be written stands in the place.
    explicit PendingFile(const std::filesystem::path& output, const PendingFileWords& words = {});

    /// The file to be replaced or created: absolute, links followed.
    const std::filesystem::path& destination() const noexcept { return m_destination; }

    /// The file to write to.
    const std::filesystem::path& temporary() const noexcept { return m_temporary.path(); }

    /// Puts the file in place with the permissions and, where the user may do that, the owner of the file
    /// that it replaces. Throws ExportFailed when that fails; the destination is as it was then.
    void putInPlace();

private:
    PendingFileWords m_words;
    std::filesystem::path m_destination;
    TemporaryFile m_temporary;
};

} // namespace rasterplan_tool
