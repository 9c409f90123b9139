#pragma once

#include "dxf/DxfEntity.h"
#include "math/MathMatrix.h"
#include "math/MathPlane.h"
#include "math/MathVector3d.h"

#include <RasterPlanWriter/ImageParam.h>

#include <cstdint>
#include <memory>

namespace rasterplan {

/// One raster image: an IMAGE entity with its definition, its reactor and its entry in the image dictionary.
class DxfImageObj final : public DxfEntity {
public:
    /// `number` is the image's place among the images of the drawing, from 1. Throws std::bad_alloc.
    DxfImageObj(const ImageParam& image, std::uint32_t number);

    std::unique_ptr<DxfEntity> clone() const override;
    DxfSection createSection() const override;

    /// Takes three handles: of the entity, of the definition and of the reactor.
    void assignHandles(DxfSectionRegistry& registry) override;

    /// Writes the header's extents and unit, then the entity, then definition, reactor and dictionary entry.
    /// Throws as updateHeaderFromImage does, and DxfError naming the section where a value has no place.
    void fillSections(DxfSectionRegistry& registry) const override;

    /// The image as it lies now.
    const ImageParam& getImageParam() const noexcept { return m_image; }

    /// The matrix that takes world directions to the axes that the image had when it was made: its rows are
    /// U, V and the view direction, its translation is zero. Moving the image does not change it.
    const std::shared_ptr<const MathMatrix>& getImageFrame() const noexcept { return m_frame; }

    /// The plane through the left-bottom corner with the normal U x V. Throws MathErrorZerovector when U and
    /// V are parallel.
    MathPlane getImagePlane() const;

    /// Moves the image. Throws MathErrorZerovector when an edge vanishes in the rounding.
    void translate(const MathVector3d& offset);

    /// Takes all three corners through `matrix`, each with homogeneous divide. Throws MathErrorZerovector
    /// when an edge vanishes.
    void transform(const MathMatrix& matrix);

private:
    struct Corners;

    Corners corners() const noexcept;
    void fillEntity(DxfSectionRegistry& registry) const;
    void fillObjects(DxfSectionRegistry& registry) const;

    ImageParam m_image;
    std::shared_ptr<const MathMatrix> m_frame;
    std::uint32_t m_number;
    Handle m_imageDefHandle;
    Handle m_spareHandle; ///< No record carries it yet.
    Handle m_reactorHandle;
    Handle m_entityHandle;
};

} // namespace rasterplan
