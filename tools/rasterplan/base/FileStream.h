#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>

namespace rasterplan_tool {

/// Opens a file for reading bytes; a null pointer, and errno says why, where that fails.
std::FILE* openForReading(const std::filesystem::path& file);

/// Goes to the byte at `offset`, also beyond 4 GiB. Whether that worked.
bool seekTo(std::FILE* stream, std::uint64_t offset);

} // namespace rasterplan_tool
