#pragma once

#include "site/Plane.h"

#include <RasterPlanWriter/DrawingUnit.h>
#include <RasterPlanWriter/ImageParam.h>

namespace rasterplan_tool {

/// How an image lies to a plane, and what comes of it in a drawing that is flattened into the plane.
struct Deviation {
    /// Distance from the plane of the image's corner that is furthest from it, in drawing units. Positive on
    /// the side from which the drawing is looked at.
    double distance = 0.0;
    /// Between the image's view direction and the plane's normal, 0 to 180; 180 is an image seen from behind.
    double angleDegrees = 0.0;
    /// By which the image is turned in the plane, -180 to 180, anticlockwise, apart from any leaning; of an
    /// image seen from behind, that of its mirror image. 180 is an image on its head.
    double turnDegrees = 0.0;
    /// The largest distance between a corner of the picture and that corner of its frame, as the drawing is
    /// looked at, in drawing units.
    double frameDisplacement = 0.0;
    /// The largest distance of a corner's y in the drawing from the corner's height, in drawing units.
    double heightError = 0.0;

    /// Whether the picture is seen from behind, so that it comes out mirrored. Seen edge-on it is neither.
    bool isMirrored() const;
};

/// How far an image may deviate from a plane without a warning.
struct Tolerance {
    double distance = 0.0; ///< In drawing units.
    double angleDegrees = 0.0;
};

/// The tolerance where the user gives none: a tenth of a metre and one degree.
Tolerance defaultTolerance(DrawingUnit unit);

/// Whether a length on an image, in drawing units, is more than half a pixel of it.
bool isVisible(double length, const ImageParam& image);

/// How `image` lies to `plane`, which is one.
Deviation deviationFrom(const Plane& plane, const ImageParam& image);

} // namespace rasterplan_tool
