#pragma once

#include <RasterPlanWriter/TripleDouble.h>

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace rasterplan_tool {

/// A picture of a drawing, in drawing units.
struct ScenePicture {
    std::string path; ///< As the drawing names it, in UTF-8; empty where it names none.
    TripleDouble leftBottom;
    TripleDouble pixelU;        ///< From a pixel's left to its right.
    TripleDouble pixelV;        ///< From a pixel's bottom to its top.
    double pixelsAcross = 0.0;  ///< Above 0.
    double pixelsUpright = 0.0; ///< Above 0.
    bool isShown = true;        ///< Otherwise the drawing wants its frame alone.
};

/// A line of a drawing.
struct SceneLine {
    TripleDouble start;
    TripleDouble end;
};

/// The view with which a drawing opens.
struct SceneViewport {
    TripleDouble target;
    TripleDouble towards; ///< From the target to the eye; a unit vector.
    TripleDouble up;      ///< A unit vector at a right angle to it.
    double height = 0.0;  ///< Above 0, in drawing units.
    double ratio = 1.0;   ///< Width by height, above 0.
};

/// What a drawing shows in its model space.
struct DrawingScene {
    std::vector<ScenePicture> pictures; ///< In the drawing's order.
    std::vector<SceneLine> lines;
    std::optional<SceneViewport> viewport;
    std::string_view unit; ///< The symbol of the drawing unit, such as "m"; empty where it has none.
};

/// Reads the pictures, the lines and the active viewport of a text DXF drawing.
/// Throws BadInput, with the line, where the file is no such drawing and where a picture has no place, and
/// ExportFailed where it cannot be read.
DrawingScene readScene(const std::filesystem::path& drawing);

} // namespace rasterplan_tool
