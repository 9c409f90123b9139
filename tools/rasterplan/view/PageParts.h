#pragma once

#include <string_view>

namespace rasterplan_tool {

/// A file of which pages are made ("page.html", "page.css", "three.min.js", "licence"), as it was when the
/// program was built; empty where it was not there.
std::string_view pagePart(std::string_view name);

} // namespace rasterplan_tool
