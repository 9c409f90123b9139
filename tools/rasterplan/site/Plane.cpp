#include "site/Plane.h"

#include "base/Vector.h"

namespace rasterplan_tool {

bool spansPlane(const Plane& plane) {
    constexpr double smallestSine = 1e-6;
    return length(cross(direction(plane.xAxis), direction(plane.yAxis))) > smallestSine;
}

} // namespace rasterplan_tool
