#include "report/Deviation.h"

#include "base/Vector.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace rasterplan_tool {

namespace {

double larger(double a, double b) {
    return std::abs(b) > std::abs(a) ? b : a;
}

// Of the turn that is left once the image is tilted into the plane the shortest way.
double turnOf(const TripleDouble& u, const TripleDouble& v, const TripleDouble& x, const TripleDouble& y) {
    constexpr double degreesPerRadian = 57.295779513082320877;
    const double sine = dot(u, y) - dot(v, x) + 0.0; // -0 would make -0 and -180 of the turn
    return std::atan2(sine, dot(u, x) + dot(v, y)) * degreesPerRadian;
}

} // namespace

bool Deviation::isMirrored() const {
    constexpr double edgeOn = 90.001;
    return angleDegrees > edgeOn;
}

Tolerance defaultTolerance(DrawingUnit unit) {
    constexpr double millimeters = 100.0;
    return {millimeters / ImageParam().getSizeInMillimeterOfDrawingUnit(unit), 1.0};
}

bool isVisible(double length, const ImageParam& image) {
    constexpr double pixels = 0.5;
    return std::abs(length) * image.getNumPixelPerUnit() > pixels;
}

Deviation deviationFrom(const Plane& plane, const ImageParam& image) {
    const TripleDouble x = direction(plane.xAxis);
    const TripleDouble y = direction(plane.yAxis);
    const TripleDouble normal = direction(cross(x, y));
    const TripleDouble acrossX = cross(normal, x); // y itself, but where the axes are oblique
    const TripleDouble u = image.getImgUVector();
    const TripleDouble v = image.getImgVVector();
    const TripleDouble leftBottom = image.getLeftBottomCorner() - plane.origin;
    const TripleDouble alongBottom = image.getImgWidth() * u;
    const TripleDouble alongLeft = image.getImgHeight() * v;

    Deviation deviation;
    for (const TripleDouble& fromLeftBottom :
         {TripleDouble(), alongBottom, alongLeft, alongBottom + alongLeft}) {
        const TripleDouble corner = leftBottom + fromLeftBottom;
        deviation.distance = larger(deviation.distance, dot(corner, normal));
        const double pictureY = dot(corner, acrossX) / dot(y, acrossX);
        // The library measures the x of a frame along the plane's axis, but its y along the image's own V.
        const double frameY = dot(corner, v);
        deviation.frameDisplacement = std::max(deviation.frameDisplacement, std::abs(frameY - pictureY));
        deviation.heightError = std::max(deviation.heightError, std::abs(pictureY - corner.z));
    }
    deviation.angleDegrees = angleDegrees(image.getViewDir(), normal);
    deviation.turnDegrees = turnOf(deviation.isMirrored() ? -1.0 * u : u, v, cross(y, normal), y);
    return deviation;
}

} // namespace rasterplan_tool
