#pragma once

#include <string>
#include <string_view>

namespace rasterplan_tool {

/// The text that a value means, as UTF-8: "\U+00E4" stands for its character, and bytes that are no UTF-8 are
/// taken for the Western European code page (1252) in which older drawings are written.
std::string unicodeText(std::string_view value);

} // namespace rasterplan_tool
