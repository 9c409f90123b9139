#pragma once

#include <string>
#include <string_view>

namespace rasterplan_tool {

/// Bytes in base 64, padded.
std::string base64(std::string_view bytes);

} // namespace rasterplan_tool
