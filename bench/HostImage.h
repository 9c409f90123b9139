#pragma once

#include "Scene.h"

#include <RasterPlanWriter/ImageParam.h>

#include <string>

namespace bench {

/// What a host hands over for a picture.
inline ImageParam hostImage(const Picture& picture) {
    const auto triple = [](const Point& point) { return TripleDouble(point.x, point.y, point.z); };
    ImageParam image(std::wstring(picture.path.begin(), picture.path.end()).c_str());
    image.setImageCorners(triple(picture.leftTop), triple(picture.leftBottom), triple(picture.rightBottom));
    image.setNumberPixelPerUnit(picture.pixelsPerMetre);
    return image;
}

} // namespace bench
