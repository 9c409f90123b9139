#include "report/Plane.h"

#include "base/Vector.h"

#include <cmath>
#include <initializer_list>

namespace rasterplan_tool {

Deviation deviationFrom(const Plane& plane, const ImageParam& image) {
    const TripleDouble y = direction(plane.yAxis);
    const TripleDouble normal = direction(cross(direction(plane.xAxis), y));
    const TripleDouble leftBottom = image.getLeftBottomCorner();
    const TripleDouble alongBottom = image.getImgWidth() * image.getImgUVector();
    const TripleDouble alongLeft = image.getImgHeight() * image.getImgVVector();

    Deviation deviation;
    for (const TripleDouble& fromLeftBottom :
         {TripleDouble(), alongBottom, alongLeft, alongBottom + alongLeft}) {
        const double distance = dot((leftBottom - plane.origin) + fromLeftBottom, normal);
        if (std::abs(distance) > std::abs(deviation.distance))
            deviation.distance = distance;
    }
    deviation.angleDegrees = angleDegrees(image.getViewDir(), normal);
    deviation.turnDegrees = angleDegrees(image.getImgVVector(), y);
    return deviation;
}

bool spansPlane(const Plane& plane) {
    constexpr double smallestSine = 1e-6;
    return length(cross(direction(plane.xAxis), direction(plane.yAxis))) > smallestSine;
}

} // namespace rasterplan_tool
