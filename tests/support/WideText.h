#pragma once

#include <string>
#include <string_view>

namespace rasterplan::test {

/// UTF-8 text as wide characters: code points, or where wide characters have 16 bits code units of UTF-16.
/// The text must be valid UTF-8.
std::wstring wideTextOf(std::string_view utf8);

} // namespace rasterplan::test
