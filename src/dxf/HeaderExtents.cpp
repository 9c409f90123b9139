#include "dxf/HeaderExtents.h"

#include <cstddef>

namespace rasterplan {

void HeaderExtents::updateHeaderFromImage(const ImageParam& image) {
    const TripleDouble leftBottom = image.getLeftBottomCorner();
    const TripleDouble u = image.getImgUVector();
    const TripleDouble v = image.getImgVVector();
    std::size_t axis = 0;
    for (const auto component : {&TripleDouble::x, &TripleDouble::y, &TripleDouble::z}) {
        const double corner = leftBottom.*component;
        if (m_min[axis].read > corner)
            m_min[axis] = Bound{corner};
        if ((corner + u.*component) + v.*component > m_max[axis].read)
            m_max[axis] =
                Bound{(image.getImgWidth() * u.*component + corner) + image.getImgHeight() * v.*component};
        ++axis;
    }
    m_unit = image.getDrawingUnit();
}

} // namespace rasterplan
