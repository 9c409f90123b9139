#include "dxf/Flattening.h"

namespace rasterplan {
namespace {

MathVector3d toOrigin(const ReferencePlane& plane) noexcept {
    return (plane.origin - MathPoint3d()) * -1.0;
}

MathMatrix worldToPlane(const ReferencePlane& plane) {
    const MathVector3d xAxis = plane.xAxis.normalized();
    const MathVector3d yAxis = plane.yAxis.normalized();
    return MathMatrix::placement(MathPoint3d(), xAxis, yAxis, cross(xAxis, yAxis)).inverse();
}

} // namespace

// Always y, whatever the axes: it reads as height where the y axis points upwards.
Flattening::Flattening(const ReferencePlane& plane)
    : m_toOrigin(toOrigin(plane))
    , m_worldToPlane(worldToPlane(plane))
    , m_lift(0.0, plane.origin.z, 0.0) {}

bool Flattening::shows(const DxfImageObj& image, const ReferencePlane& plane) {
    DxfImageObj moved = image;
    moved.translate(toOrigin(plane));
    return moved.isRectangle();
}

DxfImageObj Flattening::image(DxfImageObj image) const {
    image.translate(m_toOrigin);
    image.transform(m_worldToPlane);
    image.translate(m_lift);
    return image;
}

std::array<DxfLineObj, 6> Flattening::frameLines(DxfImageObj image) const {
    image.translate(m_toOrigin);
    const MathMatrix frame = image.getImageFrame();
    std::array<DxfLineObj, 6> lines = image.frameLines();
    for (DxfLineObj& line : lines) {
        line.transform(m_worldToPlane, frame);
        line.translate(m_lift);
    }
    return lines;
}

} // namespace rasterplan
