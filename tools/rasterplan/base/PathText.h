#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace rasterplan_tool {

/// The path that a UTF-8 text names, on every system and under every locale.
/// Throws BadInput where the system's paths cannot hold the text.
std::filesystem::path pathFromUtf8(std::string_view text);

/// A path as UTF-8 text, separators as they are.
/// Throws BadInput where the path is no Unicode text.
std::string utf8FromPath(const std::filesystem::path& path);

/// A path as the wide text that the library takes, separators as they are.
/// Throws BadInput where the path is no Unicode text.
std::wstring wideFromPath(const std::filesystem::path& path);

/// A path for messages: UTF-8 text in its visible form, some other text where the path is no Unicode text.
std::string shownText(const std::filesystem::path& path);

/// As shownText, between quotation marks.
std::string quoted(const std::filesystem::path& path);

} // namespace rasterplan_tool
