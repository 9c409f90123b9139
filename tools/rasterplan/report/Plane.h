#pragma once

#include <RasterPlanWriter/ImageParam.h>
#include <RasterPlanWriter/TripleDouble.h>

namespace rasterplan_tool {

/// A reference plane for a flattened drawing.
struct Plane {
    TripleDouble origin; ///< In drawing units.
    TripleDouble xAxis;  ///< A direction.
    TripleDouble yAxis;  ///< A direction.
};

/// How an image lies to a plane.
struct Deviation {
    /// Distance from the plane of the image's corner that is furthest from it, in drawing units. Positive on
    /// the side from which the drawing is looked at.
    double distance = 0.0;
    /// Between the image's view direction and the plane's normal, 0 to 180; 180 is an image seen from behind.
    double angleDegrees = 0.0;
    /// Between the image's V and the plane's y axis, 0 to 180.
    double turnDegrees = 0.0;
};

/// How far an image may deviate from a plane without a warning.
struct Tolerance {
    double distance = 0.0; ///< In drawing units.
    double angleDegrees = 0.0;
};

/// How `image` lies to `plane`.
Deviation deviationFrom(const Plane& plane, const ImageParam& image);

/// Whether the axes span a plane: neither is zero, and they are not parallel.
bool spansPlane(const Plane& plane);

} // namespace rasterplan_tool
