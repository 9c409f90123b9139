#pragma once

#include <RasterPlanWriter/DrawingUnit.h>

#include <optional>
#include <string>

namespace rasterplan_tool {

/// Where the pixels of a picture lie on a map whose x points to the right and whose y points upwards.
struct MapTransform {
    double x = 0.0; ///< Of the left-top corner of the left-top pixel.
    double y = 0.0;
    double xPerColumn = 0.0; ///< From one pixel to its right neighbour.
    double yPerColumn = 0.0;
    double xPerRow = 0.0; ///< From one pixel to the one below.
    double yPerRow = 0.0;
};

/// The transform that leads from the center of the left-top pixel, as `transform` stands, to its corner.
inline MapTransform fromPixelCenter(MapTransform transform) {
    transform.x -= 0.5 * transform.xPerColumn + 0.5 * transform.xPerRow;
    transform.y -= 0.5 * transform.yPerColumn + 0.5 * transform.yPerRow;
    return transform;
}

/// The place that a GeoTIFF gives its picture.
struct GeoReference {
    MapTransform transform;
    std::string problem; ///< Why the place cannot be used; empty, and only then `transform` holds, if it can.
    std::optional<DrawingUnit> unit; ///< Of the map's coordinates, where the file says so.
};

} // namespace rasterplan_tool
