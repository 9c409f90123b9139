#pragma once

#include "base/Console.h"
#include "base/Resources.h"

#include <filesystem>

namespace rasterplan_tool {

/// What `rasterplan view` is asked to do.
struct ViewDrawing {
    std::filesystem::path drawing;
    std::filesystem::path page; ///< Empty for the drawing's name with ".html".
    bool embed = false;         ///< Put the pictures into the page.
};

/// Writes the page and says what was written; warns of pictures that it cannot show. Throws Failure, and then
/// an old page is as it was.
void execute(const ViewDrawing& command, Console& console, const MemoryWatch& memory);

} // namespace rasterplan_tool
