#pragma once

namespace rasterplan_tool {

/// How far a picture's pixel count may lie beside what its frame says: a count is whole, so it is the same up
/// to here.
inline constexpr double pixelTolerance = 0.5;

} // namespace rasterplan_tool
