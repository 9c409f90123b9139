#pragma once

#include <RasterPlanWriter/DrawingUnit.h>

#include <optional>
#include <string>
#include <string_view>

namespace rasterplan_tool {

/// The unit of that name or short form ("Meters", "metre", "m"), in any case and whether or not there are
/// spaces and hyphens in it; nothing for any other text.
std::optional<DrawingUnit> unitFromName(std::string_view name);

/// As suggestionText, for what is no unit.
std::string unitSuggestion(std::string_view name);

/// All spellings of a unit in small letters, separated by spaces, its name first.
std::string_view unitSpellings(DrawingUnit unit);

/// The name of a unit.
std::string_view unitName(DrawingUnit unit);

/// All names in the order of their codes, separated by ", ".
std::string allUnitNames();

} // namespace rasterplan_tool
