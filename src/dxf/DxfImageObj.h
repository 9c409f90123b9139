#pragma once

#include "dxf/DxfLineObj.h"
#include "dxf/DxfSectionEntities.h"
#include "dxf/Handles.h"
#include "math/MathMatrix.h"
#include "math/MathPlane.h"
#include "math/MathVector3d.h"

#include <RasterPlanWriter/ImageParam.h>

#include <array>

namespace rasterplan {

/// One raster image: an IMAGE entity with its frame lines, its definition, its reactor and its entry in the
/// image dictionary.
class DxfImageObj {
public:
    explicit DxfImageObj(const ImageParam& image) noexcept
        : m_image(image) {}

    /// The image as it lies now.
    const ImageParam& getImageParam() const noexcept { return m_image; }

    /// Whether both sides are longer than the default tolerance and perpendicular within 0.001; never with
    /// NaN or infinite corners.
    bool isRectangle() const;

    /// The matrix that takes world directions to the axes of the image as it lies now: its rows are U, V and
    /// the view direction, its translation is zero.
    MathMatrix getImageFrame() const;

    /// The plane through the left-bottom corner with the normal U x V. Throws MathErrorZerovector when U and
    /// V are parallel.
    MathPlane getImagePlane() const;

    /// The lines around the image: bottom, left, right and top edge, and two short marks on the extended
    /// bottom and left edges, which tell which corner is the image's origin.
    std::array<DxfLineObj, 6> frameLines() const noexcept;

    /// Moves the image. Throws MathErrorZerovector when an edge vanishes in the rounding.
    void translate(const MathVector3d& offset);

    /// Takes all three corners through `matrix`, each with homogeneous divide. Throws MathErrorZerovector
    /// when an edge vanishes.
    void transform(const MathMatrix& matrix);

    /// Takes the handles of an image: of the entity, of the definition and of the reactor.
    static ImageHandles assignHandles(HandleCounter& handles) noexcept;

    /// The image's own record.
    DxfSectionImageEntity createSection(const ImageHandles& handles) const noexcept {
        return {m_image, handles};
    }

private:
    template <typename Map>
    void mapCorners(const Map& map);

    ImageParam m_image;
};

} // namespace rasterplan
