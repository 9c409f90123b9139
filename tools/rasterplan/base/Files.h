#pragma once

#include <filesystem>

namespace rasterplan_tool {

/// Whether an ordinary file is there, or a link to one. Throws as throwIfExhausted does.
bool isFile(const std::filesystem::path& path);

/// Whether two paths name one file, by whatever links; of files that are not there, whether the paths are the
/// same.
bool isSameFile(const std::filesystem::path& a, const std::filesystem::path& b);

} // namespace rasterplan_tool
