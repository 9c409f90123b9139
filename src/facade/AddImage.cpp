#include "facade/AddImage.h"

#include "math/MathPredicates.h"
#include "math/MathTol.h"

#include <algorithm>

namespace rasterplan {
namespace {

bool isRectangle(const ImageParam& image) {
    const MathTol rightAngle(0.001, 0.001, 0.001);
    const double shortest = MathTol().length();
    return image.getImgWidth() > shortest && image.getImgHeight() > shortest &&
           isPerpendicular(image.getImgUVector(), image.getImgVVector(), rightAngle);
}

} // namespace

bool addImage(Drawing& drawing, const ImageParam& image) {
    if (!isRectangle(image))
        return false;

    const auto imageNumber = static_cast<std::uint32_t>(drawing.images.count()) + 1;
    const auto frame = drawing.images.append(image, imageNumber).getImageFrame();

    const MathVector3d u = image.getImgUVector();
    const MathVector3d v = image.getImgVVector();
    const double width = image.getImgWidth();
    const double height = image.getImgHeight();
    const MathPoint3d leftBottom = image.getLeftBottomCorner();
    const MathPoint3d rightBottom = leftBottom + width * u;
    const MathPoint3d leftTop = leftBottom + height * v;
    const MathPoint3d rightTop = leftBottom + (width * u + height * v);

    auto lineNumber = static_cast<std::uint32_t>(drawing.lines.count());
    const auto addLine = [&](const MathPoint3d& start, const MathPoint3d& end) {
        drawing.lines.append(LineDescription{start, end, frame}, ++lineNumber);
    };
    addLine(leftBottom, rightBottom);
    addLine(leftBottom, leftTop);
    addLine(rightBottom, rightTop);
    addLine(leftTop, rightTop);
    // Two marks on the extended edges tell which corner is the image's origin.
    const double longest = std::max(width, height);
    addLine(leftBottom - longest * u / 20.0, leftBottom - longest * u / 40.0);
    addLine(leftBottom - longest * v / 20.0, leftBottom - longest * v / 40.0);

    drawing.viewport.addImage(image);
    return true;
}

} // namespace rasterplan
