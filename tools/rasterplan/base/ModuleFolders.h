#pragma once

#include <filesystem>
#include <vector>

namespace rasterplan_tool {

/// The folders of the library's code and of the program, with and without links followed; those that the
/// system tells.
std::vector<std::filesystem::path> moduleFolders();

} // namespace rasterplan_tool
