#include "dxf/DxfImageObj.h"

#include "math/MathPoint3d.h"
#include "math/MathPredicates.h"
#include "math/MathTol.h"

#include <algorithm>

namespace rasterplan {

bool DxfImageObj::isRectangle() const {
    const MathTol rightAngle(0.001, 0.001, 0.001);
    const double shortest = MathTol().length();
    return m_image.getImgWidth() > shortest && m_image.getImgHeight() > shortest &&
           isPerpendicular(m_image.getImgUVector(), m_image.getImgVVector(), rightAngle);
}

MathMatrix DxfImageObj::getImageFrame() const {
    const TripleDouble u = m_image.getImgUVector();
    const TripleDouble v = m_image.getImgVVector();
    const TripleDouble view = m_image.getViewDir();
    return MathMatrix::placement({}, {u.x, v.x, view.x}, {u.y, v.y, view.y}, {u.z, v.z, view.z});
}

MathPlane DxfImageObj::getImagePlane() const {
    return MathPlane(m_image.getLeftBottomCorner(), cross(m_image.getImgUVector(), m_image.getImgVVector()));
}

std::array<DxfLineObj, 6> DxfImageObj::frameLines() const noexcept {
    const MathVector3d u = m_image.getImgUVector();
    const MathVector3d v = m_image.getImgVVector();
    const double width = m_image.getImgWidth();
    const double height = m_image.getImgHeight();
    const MathPoint3d leftBottom = m_image.getLeftBottomCorner();
    const MathPoint3d rightBottom = leftBottom + width * u;
    const MathPoint3d leftTop = leftBottom + height * v;
    const MathPoint3d rightTop = leftBottom + (width * u + height * v);
    const double longest = std::max(width, height);
    return {DxfLineObj(leftBottom, rightBottom),
            DxfLineObj(leftBottom, leftTop),
            DxfLineObj(rightBottom, rightTop),
            DxfLineObj(leftTop, rightTop),
            DxfLineObj(leftBottom - longest * u / 20.0, leftBottom - longest * u / 40.0),
            DxfLineObj(leftBottom - longest * v / 20.0, leftBottom - longest * v / 40.0)};
}

template <typename Map>
void DxfImageObj::mapCorners(const Map& map) {
    const MathPoint3d leftBottom = m_image.getLeftBottomCorner();
    const MathPoint3d leftTop = leftBottom + MathVector3d(m_image.getImgVVector()) * m_image.getImgHeight();
    const MathPoint3d rightBottom =
        leftBottom + MathVector3d(m_image.getImgUVector()) * m_image.getImgWidth();
    m_image.setImageCorners(map(leftTop), map(leftBottom), map(rightBottom));
}

void DxfImageObj::translate(const MathVector3d& offset) {
    mapCorners([&](const MathPoint3d& corner) { return corner + offset; });
}

void DxfImageObj::transform(const MathMatrix& matrix) {
    mapCorners([&](const MathPoint3d& corner) { return matrix.transform(corner); });
}

ImageHandles DxfImageObj::assignHandles(HandleCounter& handles) noexcept {
    const Handle entity = handles.nextHandle();
    const Handle definition = handles.nextHandle();
    return {entity, definition, handles.nextHandle()};
}

} // namespace rasterplan
