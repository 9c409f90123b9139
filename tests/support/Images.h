#pragma once

#include <RasterPlanWriter/ImageParam.h>

namespace rasterplan::test {

/// An image with these corners.
inline ImageParam imageAt(const TripleDouble& leftTop, const TripleDouble& leftBottom,
                          const TripleDouble& rightBottom, double pixelsPerUnit = 100.0,
                          const wchar_t* path = L"plan.png") {
    ImageParam image(path);
    image.setImageCorners(leftTop, leftBottom, rightBottom);
    image.setNumberPixelPerUnit(pixelsPerUnit);
    return image;
}

/// An image in a plane of constant z: U is x, V is y.
inline ImageParam levelImage(const TripleDouble& leftBottom, double width, double height) {
    const TripleDouble& corner = leftBottom;
    return imageAt({corner.x, corner.y + height, corner.z}, corner, {corner.x + width, corner.y, corner.z});
}

/// An image of a wall that faces the negative y direction: U is x, V is z.
inline ImageParam wallImage(const TripleDouble& leftBottom, double width, double height) {
    const TripleDouble& corner = leftBottom;
    return imageAt({corner.x, corner.y, corner.z + height}, corner, {corner.x + width, corner.y, corner.z});
}

} // namespace rasterplan::test
