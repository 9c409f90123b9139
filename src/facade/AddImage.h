#pragma once

#include "dxf/Drawing.h"

#include <RasterPlanWriter/ImageParam.h>

namespace rasterplan {

/// Adds an image to a drawing with the six lines of its frame, and widens the drawing's view.
///
/// Returns false, and adds nothing, unless both sides are longer than the default tolerance and perpendicular
/// within 0.001; NaN and infinite corners never are. Throws std::bad_alloc and what DxfViewPortObj::addImage
/// throws; what was added before stays.
bool addImage(Drawing& drawing, const ImageParam& image);

} // namespace rasterplan
