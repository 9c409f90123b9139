#pragma once

#include "dxf/DxfEntity.h"
#include "math/MathBox3d.h"
#include "math/MathMatrix.h"
#include "math/MathVector3d.h"

#include <RasterPlanWriter/ImageParam.h>

#include <memory>

namespace rasterplan {

/// The active viewport: looks at the plane of the first image face-on and shows all images.
class DxfViewPortObj final : public DxfEntity {
public:
    std::unique_ptr<DxfEntity> clone() const override;
    DxfSection createSection() const override;

    /// Takes no handle: the record has a fixed one.
    void assignHandles(DxfSectionRegistry& registry) override;

    /// Writes view direction, target, twist, height and aspect ratio. Throws DxfError when one has no place,
    /// and ErrorNR when the view cannot be inverted.
    void fillSections(DxfSectionRegistry& registry) const override;

    /// Widens the view by an image; the first one also decides direction and twist. Throws ErrorNR when the
    /// first image's frame is singular, and DxfError when a direction is known although nothing is shown yet
    /// and the image is not parallel to it.
    void addImage(const ImageParam& image);

    /// As addImage, for an image that lies in the plane of the drawing: the view is not twisted.
    void addImageFlat(const ImageParam& image);

private:
    void lookAt(const ImageParam& image);

    MathBox3d m_planeBox;
    MathVector3d m_viewDirection;
    MathMatrix m_worldToPlane = MathMatrix::identity4();
    double m_twist = 0.0; ///< In degrees.
    double m_pixelsPerUnit = 0.0;
};

} // namespace rasterplan
