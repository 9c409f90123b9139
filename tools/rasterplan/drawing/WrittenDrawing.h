#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>

namespace rasterplan_tool {

/// What a drawing holds, read back from its file.
struct WrittenDrawing {
    std::uintmax_t size = 0; ///< In bytes.
    std::size_t images = 0;
    std::size_t imageDefinitions = 0;
    bool isComplete = false; ///< The last group is 0, EOF.
    /// Where in the file the viewport's view mode (code 71) is written "0.0": the byte of the first
    /// character.
    std::optional<std::uintmax_t> viewModeAsReal;
};

/// Reads a drawing back, group by group.
/// Throws ExportFailed when the file cannot be opened.
WrittenDrawing readBack(const std::filesystem::path& drawing);

} // namespace rasterplan_tool
