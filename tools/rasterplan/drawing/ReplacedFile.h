#pragma once

#include <filesystem>

namespace rasterplan_tool {

/// Gives a new file the permissions of the file that it will replace, and where the system has such and lets
/// the user do it, its owner and group. Does nothing where there is no such file.
void takeOver(const std::filesystem::path& replaced, const std::filesystem::path& file) noexcept;

} // namespace rasterplan_tool
