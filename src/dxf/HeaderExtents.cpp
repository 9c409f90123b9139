#include "dxf/HeaderExtents.h"

#include "dxf/DxfSectionHeader.h"
#include "template/DxfError.h"

#include <array>

namespace rasterplan {
namespace {

constexpr std::array<Placeholder, 3> coordinates{headerVarBoxRows[L"#VEXO_EXTVARX_VALUE#"],
                                                 headerVarBoxRows[L"#VEXO_EXTVARY_VALUE#"],
                                                 headerVarBoxRows[L"#VEXO_EXTVARZ_VALUE#"]};
constexpr Placeholder unit = headerInsUnitsRows[L"#VEXO_INSUNIT_UNIT_VALUE#"];

using Coordinates = std::array<double, 3>;

Coordinates coordinatesOf(const TripleDouble& triple) {
    return {triple.x, triple.y, triple.z};
}

/// The section of an extent, which has all three coordinates.
const DxfSection& extentOf(const DxfSectionRegistry& registry, TopLevelKey key, const wchar_t* message) {
    const DxfSection* const section = registry.findSectionForReading(key).section;
    for (const Placeholder& coordinate : coordinates)
        if (!section || !section->hasPlaceholderValue(coordinate))
            throw DxfError(message);
    return *section;
}

} // namespace

void updateHeaderFromImage(DxfSectionRegistry& registry, const ImageParam& image) {
    const Coordinates leftBottom = coordinatesOf(image.getLeftBottomCorner());
    const Coordinates u = coordinatesOf(image.getImgUVector());
    const Coordinates v = coordinatesOf(image.getImgVVector());
    const double width = image.getImgWidth();
    const double height = image.getImgHeight();
    bool complete = true;

    const DxfSection& extMin =
        extentOf(registry, TopLevelKey::headerExtMin, L"Failure while setting Map: VEXO_HEADER_EXTMIN");
    for (std::size_t axis = 0; axis < 3; ++axis) {
        if (extMin.getPlaceholderNumber(coordinates[axis]) > leftBottom[axis])
            complete &=
                registry.setSectionValue(TopLevelKey::headerExtMin, coordinates[axis], leftBottom[axis]);
    }

    const DxfSection& extMax =
        extentOf(registry, TopLevelKey::headerExtMax, L"Failure while setting Map: VEXO_HEADER_EXMAX");
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const double tested = (leftBottom[axis] + u[axis]) + v[axis];
        if (tested > extMax.getPlaceholderNumber(coordinates[axis])) {
            const double farCorner = (width * u[axis] + leftBottom[axis]) + height * v[axis];
            complete &= registry.setSectionValue(TopLevelKey::headerExtMax, coordinates[axis], farCorner);
        }
    }

    complete &= registry.setSectionValue(TopLevelKey::headerInsUnits, unit,
                                         static_cast<std::int32_t>(image.getDrawingUnit()));
    if (!complete)
        throw DxfError(L"Failure while setting Map.");
}

} // namespace rasterplan
