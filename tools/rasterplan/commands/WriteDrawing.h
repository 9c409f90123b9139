#pragma once

#include "base/Console.h"
#include "base/Resources.h"
#include "drawing/PathForm.h"
#include "site/Plane.h"

#include <filesystem>
#include <optional>

namespace rasterplan_tool {

/// What `rasterplan 3d` and `rasterplan 2d` are asked to do.
struct WriteDrawing {
    bool flattened = false; ///< Into a plane, as 2d does.
    std::filesystem::path site;
    std::filesystem::path output;
    PathForm pathForm = PathForm::Relative;
    bool view = false;          ///< Write the page that shows the drawing too, beside it.
    std::optional<Plane> plane; ///< Of a flattened drawing: the user's plane; otherwise the proposed one.
    std::optional<double> angleTolerance;    ///< Of a flattened drawing, in degrees.
    std::optional<double> distanceTolerance; ///< Of a flattened drawing, in drawing units.
};

/// Writes the drawing and says what was written. Throws Failure, and then the old drawing is as it was.
void execute(const WriteDrawing& command, Console& console, const MemoryWatch& memory);

} // namespace rasterplan_tool
