#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace rasterplan_tool {

/// The picture file that a drawing means by `path` (UTF-8; separators of either system): where it says,
/// relative to the drawing's folder, or else beside the drawing, as CAD programs look for it. Nothing where
/// neither is there.
std::optional<std::filesystem::path> findPicture(std::string_view path,
                                                 const std::filesystem::path& drawingFolder);

/// The kind of picture, as web pages name it ("image/png"), told by the file's content; empty where browsers
/// do not show it, TIFF among others.
std::string_view mediaType(const std::filesystem::path& picture);

/// The address of a file as a page in `pageFolder` names it: relative, or absolute where no relative path
/// leads there. Both paths are absolute, with links followed.
std::string linkTo(const std::filesystem::path& file, const std::filesystem::path& pageFolder);

/// A picture as an address that holds it as a whole. Throws ExportFailed where it cannot be read.
std::string embedded(const std::filesystem::path& picture, std::string_view mediaType);

} // namespace rasterplan_tool
