#include "dxf/DxfViewPortObj.h"

#include "math/EulerAngles.h"
#include "math/MathPredicates.h"
#include "math/MathTol.h"
#include "template/DxfError.h"

#include <cmath>
#include <numbers>

namespace rasterplan {

DxfSectionTable_VPORT DxfViewPortObj::createSection() const {
    const MathPoint3d target = m_worldToPlane.inverse().transform(m_planeBox.center());
    const double width = m_planeBox.max().x - m_planeBox.min().x;
    const double height = m_planeBox.max().y - m_planeBox.min().y;
    return {m_viewDirection, target, std::abs(height), width / height, m_twist};
}

void DxfViewPortObj::addImage(const ImageParam& image) {
    if (m_planeBox.isEmpty())
        lookAt(image);
    m_planeBox.extend(m_worldToPlane.transform(image.getLeftBottomCorner()));
    m_planeBox.extend(m_worldToPlane.transform(image.getRightTopCorner()));
}

void DxfViewPortObj::addImageFlat(const ImageParam& image) {
    addImage(image);
    m_twist = 0.0;
}

void DxfViewPortObj::lookAt(const ImageParam& image) {
    constexpr int zyxStatic = 20;
    constexpr double degreesPerRadian = 180.0 / std::numbers::pi;

    const MathVector3d direction = image.getViewDir();
    m_worldToPlane = MathMatrix::placement(image.getLeftBottomCorner(), image.getImgUVector(),
                                           image.getImgVVector(), direction)
                         .inverse();
    m_twist = eulerAngles(m_worldToPlane, zyxStatic)->third * degreesPerRadian;
    const MathTol tolerance;
    if (!isZeroVector(m_viewDirection, tolerance) && !isParallel(m_viewDirection, direction, tolerance))
        throw DxfError("DxfViewPortObj: Non parallel plane not allowed.");
    m_viewDirection = direction;
}

} // namespace rasterplan
