#pragma once

#include "base/ParseNumber.h"
#include "math/MathPoint3d.h"

#include <RasterPlanWriter/ImageParam.h>

#include <array>
#include <cstdint>
#include <limits>

namespace rasterplan {

/// The header variables that follow the images: $EXTMIN, $EXTMAX and $INSUNITS.
///
/// Without images $EXTMIN lies above every coordinate, $EXTMAX at the smallest positive double, which is
/// written as zero, so that an axis on which every image lies below zero keeps zero; and the unit is metres.
/// An extent is compared as a reader of the drawing knows it, rounded to the decimals that are written.
class HeaderExtents {
public:
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
        double value;
        double read = ZelkBase::printedValue(value); ///< What a reader makes of it.
    };
    static constexpr double highest = std::numeric_limits<double>::max();
    static constexpr double leastPositive = std::numeric_limits<double>::min();

    std::array<Bound, 3> m_min{Bound{highest}, Bound{highest}, Bound{highest}};
    std::array<Bound, 3> m_max{Bound{leastPositive}, Bound{leastPositive}, Bound{leastPositive}};
    std::int32_t m_unit = Meters;
};

} // namespace rasterplan
