#pragma once

#include "site/ObjectReader.h"

#include <RasterPlanWriter/TripleDouble.h>

#include <string>
#include <variant>

namespace rasterplan_tool {

/// An image placed by three corners of its picture.
struct CornerPlace {
    TripleDouble leftTop;
    TripleDouble leftBottom;
    TripleDouble rightBottom;
    double pixelsPerUnit = 0.0; ///< Greater than 0.
};

/// An image placed by a corner and the directions of its edges. Its size follows from the picture's pixels.
struct DirectionPlace {
    TripleDouble leftBottom;
    TripleDouble right;         ///< Of any length but zero.
    TripleDouble up;            ///< Of any length but zero.
    double pixelsPerUnit = 0.0; ///< Greater than 0.
};

/// An image placed on a map by a world file or by its own GeoTIFF tags, and where the map lies in space.
struct MapPlace {
    std::string worldFile; ///< UTF-8, as it stands in SITE.json; empty unless one is named there.
    TripleDouble origin;
    TripleDouble xAxis{1, 0, 0}; ///< The direction of the map's x, of any length but zero.
    TripleDouble yAxis{0, 1, 0}; ///< The direction of the map's y, of any length but zero.
};

/// How an image is placed, as SITE.json says it.
using ImagePlace = std::variant<CornerPlace, DirectionPlace, MapPlace>;

/// Reads how an image of SITE.json is placed. Throws BadInput where fields are missing, wrong or of several
/// ways.
ImagePlace readPlace(const ObjectReader& reader);

} // namespace rasterplan_tool
