#pragma once

#include <RasterPlanWriter/RasterPlanWriter.h>

#include <string_view>

namespace rasterplan_tool {

/// What a result of writing means and what the user can do about it.
std::string_view writeResultText(RasterPlanWriter::ErrorEnum result);

} // namespace rasterplan_tool
