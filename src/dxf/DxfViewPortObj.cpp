#include "dxf/DxfViewPortObj.h"

#include "dxf/DxfSectionTable_VPORT.h"
#include "dxf/ValueGroup.h"
#include "math/EulerAngles.h"
#include "math/MathPredicates.h"
#include "math/MathTol.h"

#include <cmath>
#include <numbers>

namespace rasterplan {

std::unique_ptr<DxfEntity> DxfViewPortObj::clone() const {
    return std::make_unique<DxfViewPortObj>(*this);
}

DxfSection DxfViewPortObj::createSection() const {
    return DxfSectionTable_VPORT();
}

void DxfViewPortObj::assignHandles(DxfSectionRegistry&) {}

void DxfViewPortObj::fillSections(DxfSectionRegistry& registry) const {
    constexpr auto& rows = viewportRows;
    constexpr Placeholder directionX = rows[L"#VEXO_TABLE_VPORTVIEWDIR_X#"];
    constexpr Placeholder directionY = rows[L"#VEXO_TABLE_VPORTVIEWDIR_Y#"];
    constexpr Placeholder directionZ = rows[L"#VEXO_TABLE_VPORTVIEWDIR_Z#"];
    constexpr Placeholder targetX = rows[L"#VEXO_TABLE_VPORTVIEWTARGETPNT_X#"];
    constexpr Placeholder targetY = rows[L"#VEXO_TABLE_VPORTVIEWTARGETPNT_Y#"];
    constexpr Placeholder targetZ = rows[L"#VEXO_TABLE_VPORTVIEWTARGETPNT_Z#"];
    constexpr Placeholder twist = rows[L"#VEXO_TABLE_VPORTTWIST#"];
    constexpr Placeholder viewHeight = rows[L"#VEXO_TABLE_VPORTVIEWHEIGHT#"];
    constexpr Placeholder aspectRatio = rows[L"#VEXO_TABLE_VPORTVIEWRATIO#"];

    const SectionKey section(TopLevelKey::tableVPort);
    const MathPoint3d target = m_worldToPlane.inverse().transform(m_planeBox.centre());
    const double width = m_planeBox.max().x - m_planeBox.min().x;
    const double height = m_planeBox.max().y - m_planeBox.min().y;
    ValueGroup(registry, section)
        .set(directionX, m_viewDirection.x)
        .set(directionY, m_viewDirection.y)
        .set(directionZ, m_viewDirection.z)
        .set(targetX, target.x)
        .set(targetY, target.y)
        .set(targetZ, target.z)
        .set(twist, m_twist)
        .set(viewHeight, std::abs(height))
        .set(aspectRatio, width / height)
        .check(section);
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
        throw DxfError(L"DxfViewPortObj: Non parallel plane not allowed.");
    m_viewDirection = direction;
    m_pixelsPerUnit = image.getNumPixelPerUnit();
}

} // namespace rasterplan
