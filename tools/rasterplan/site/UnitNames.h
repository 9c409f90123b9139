#pragma once

#include <RasterPlanWriter/DrawingUnit.h>

#include <optional>
#include <string>
#include <string_view>

namespace rasterplan_tool {

/// The unit of that name, spelt exactly; nothing for any other text.
std::optional<DrawingUnit> unitFromName(std::string_view name);

/// The name of a unit.
std::string_view unitName(DrawingUnit unit);

/// All names in the order of their codes, separated by ", ".
std::string allUnitNames();

} // namespace rasterplan_tool
