#pragma once

#include <string>
#include <string_view>

namespace rasterplan_tool {

/// The text that a value of a drawing means, in UTF-8: characters may stand there as "\U+00FC", those beyond
/// U+FFFF as two such halves. All else is taken as it is.
std::string textFromDxf(std::string_view value);

} // namespace rasterplan_tool
