#pragma once

#include "base/Console.h"
#include "base/Resources.h"

#include <filesystem>

namespace rasterplan_tool {

/// What `rasterplan check` is asked to do.
struct CheckDrawing {
    std::filesystem::path drawing;
    bool json = false; ///< The findings as a list of JSON.
};

/// Prints why pictures of the drawing do not show, and throws FaultsFound if there is any reason. Throws
/// another Failure, and then nothing is printed, when the drawing cannot be read or is no text DXF.
void execute(const CheckDrawing& command, Console& console, const MemoryWatch& memory);

} // namespace rasterplan_tool
