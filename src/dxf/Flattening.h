#pragma once

#include "dxf/DxfImageObj.h"
#include "dxf/DxfLineObj.h"
#include "math/MathMatrix.h"
#include "math/MathPoint3d.h"
#include "math/MathVector3d.h"

#include <array>

namespace rasterplan {

/// A plane to flatten into: a point and the two directions that become the drawing's x and y.
struct ReferencePlane {
    MathPoint3d origin;
    MathVector3d xAxis;
    MathVector3d yAxis;
};

/// Brings images into a plane: its axes become x and y, and y is lifted by the height of its origin.
class Flattening {
public:
    /// Throws MathErrorZerovector for a zero axis, and ErrorNR when both axes are the same coordinate
    /// direction.
    explicit Flattening(const ReferencePlane& plane);

    /// Whether the image is still a rectangle beside the origin of the plane: rounding far away leaves some
    /// without a right angle. Throws MathErrorZerovector when an edge vanishes.
    static bool shows(const DxfImageObj& image, const ReferencePlane& plane);

    /// The image, flattened. Throws as shows, and likewise in the plane.
    DxfImageObj image(DxfImageObj image) const;

    /// The frame of the image, flattened: drawn anew around the image as it lies beside the origin. Throws as
    /// shows.
    std::array<DxfLineObj, 6> frameLines(DxfImageObj image) const;

private:
    MathVector3d m_toOrigin;
    MathMatrix m_worldToPlane;
    MathVector3d m_lift;
};

} // namespace rasterplan
