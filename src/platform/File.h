#pragma once

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string_view>

namespace rasterplan {

/// A file of the system, closed at the end of its life. Reads and writes bytes; who writes moves whole
/// blocks, and nothing of them is held back. While it is open other processes may read and write it.
struct CloseFile {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

/// Opens a file for reading; null when that fails.
File openForReading(const std::filesystem::path& path);

/// Creates or empties a file and opens it for writing; null when that fails, also for a path that no file can
/// have here. On Linux the path's bytes are its UTF-8 text.
File openForWriting(std::wstring_view path);

} // namespace rasterplan
