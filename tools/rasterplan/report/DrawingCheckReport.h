#pragma once

#include "report/DrawingCheck.h"

#include <filesystem>
#include <ostream>
#include <vector>

namespace rasterplan_tool {

/// Prints findings as they stand, a line each: `plan.dxf:12: IMAGE 8A: what is wrong; what to do`.
void printFindings(std::ostream& out, const std::filesystem::path& drawing,
                   const std::vector<Finding>& findings);

/// Prints findings as a JSON list of objects with kind, record, handle, line and text.
void printFindingsAsJson(std::ostream& out, const std::vector<Finding>& findings);

} // namespace rasterplan_tool
