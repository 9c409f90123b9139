#pragma once

#include "math/MathPoint3d.h"

#include <RasterPlanWriter/ImageParam.h>

#include <array>
#include <cstdint>

namespace rasterplan {

/// The header variables that follow the images: $EXTMIN, $EXTMAX and $INSUNITS.
///
/// An extent is compared as a reader of the drawing knows it, rounded to the decimals that are written.
class HeaderExtents {
public:
    /// Without images: $EXTMIN above every coordinate; $EXTMAX at the smallest positive double, which is
    /// written as zero, so that an axis on which every image lies below zero keeps zero; and metres.
    HeaderExtents();

    /// Widens the extents by one image and takes its unit, so that the last image decides.
    ///
    /// $EXTMIN is the least left-bottom corner. $EXTMAX becomes, axis by axis, the far corner of an image
    /// whose left-bottom corner plus both unit vectors lies above it: a far corner of its own is not
    /// compared.
    void updateHeaderFromImage(const ImageParam& image);

    MathPoint3d min() const noexcept { return {m_min[0].value, m_min[1].value, m_min[2].value}; }
    MathPoint3d max() const noexcept { return {m_max[0].value, m_max[1].value, m_max[2].value}; }
    std::int32_t unit() const noexcept { return m_unit; }

private:
    struct Bound {
        Bound() noexcept = default;
        explicit Bound(double value_);

        double value = 0.0;
        double read = 0.0; ///< What a reader makes of it.
    };

    std::array<Bound, 3> m_min;
    std::array<Bound, 3> m_max;
    std::int32_t m_unit = Meters;
};

} // namespace rasterplan
