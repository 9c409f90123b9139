#pragma once

#include "base/Console.h"
#include "base/Resources.h"

#include <filesystem>

namespace rasterplan_tool {

/// What `rasterplan plane` is asked to do.
struct ShowPlane {
    std::filesystem::path site;
    bool json = false; ///< With numbers that read back exactly.
};

/// Prints the plane that is proposed for the site's images and how they lie to it. Throws Failure, and then
/// nothing is printed.
void execute(const ShowPlane& command, Console& console, const MemoryWatch& memory);

} // namespace rasterplan_tool
