#pragma once

#include "dxf/Drawing.h"
#include "dxf/Flattening.h"

namespace rasterplan {

/// The mean plane of the images: parallel to the mean of their planes, its x axis the mean of their U
/// vectors, its origin the left-bottom corner furthest to the left in it, of equal ones the first. The y axis
/// is perpendicular to the x axis and as long as the sine of the angle between the normal and the x axis. One
/// image is its own plane.
///
/// The drawing holds at least one image. Throws MathError when normals or U vectors cancel out, ErrorNR when
/// the plane's frame is singular, ZelkBase::Error for an empty list entry.
ReferencePlane middledImagePlane(const Drawing& drawing);

} // namespace rasterplan
