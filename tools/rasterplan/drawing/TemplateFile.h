#pragma once

#include <filesystem>

namespace rasterplan_tool {

/// Whether a file is the template from which the library makes every drawing, under whatever name or link.
bool isTemplate(const std::filesystem::path& file);

} // namespace rasterplan_tool
