#pragma once

#include "dxf/DxfSectionTable_VPORT.h"
#include "math/MathBox3d.h"
#include "math/MathMatrix.h"
#include "math/MathVector3d.h"

#include <RasterPlanWriter/ImageParam.h>

namespace rasterplan {

/// The active viewport: looks at the plane of the first image face-on and shows all images.
class DxfViewPortObj {
public:
    /// The record, which has a fixed handle. Throws ErrorNR when the view cannot be inverted.
    DxfSectionTable_VPORT createSection() const;

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
};

} // namespace rasterplan
