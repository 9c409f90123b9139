#pragma once

#include "base/Console.h"
#include "base/Resources.h"

#include <filesystem>

namespace rasterplan_tool {

/// What `rasterplan corners` is asked to do.
struct ShowCorners {
    std::filesystem::path site;
};

/// Prints the site as a SITE.json in which every image is placed by its three corners, in the site's unit,
/// with numbers that read back exactly. Throws Failure, and then nothing is printed.
void execute(const ShowCorners& command, Console& console, const MemoryWatch& memory);

} // namespace rasterplan_tool
