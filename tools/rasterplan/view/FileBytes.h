#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace rasterplan_tool {

/// All bytes of a file; nothing where it cannot be read, as a folder cannot. Throws as throwIfExhausted does.
std::optional<std::string> readFileBytes(const std::filesystem::path& file);

} // namespace rasterplan_tool
