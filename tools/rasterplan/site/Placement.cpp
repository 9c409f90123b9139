#include "site/Placement.h"

#include "base/Failure.h"
#include "base/NumberText.h"
#include "base/PathText.h"
#include "base/Vector.h"
#include "site/UnitNames.h"

#include <RasterPlanWriter/ImageParam.h>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <string>

namespace rasterplan_tool {
namespace {

// A rectangle of square pixels on a map: its left-top corner, its turn and the size of a pixel.
struct MapRectangle {
    double x = 0.0;
    double y = 0.0;
    double pixel = 0.0;
    double cosine = 1.0; // of the turn from the map's x axis to the bottom edge
    double sine = 0.0;
};

struct Term {
    std::string_view name;
    double MapTransform::*value;
    int line; // of a world file
};

constexpr Term xPerColumn{"x per column", &MapTransform::xPerColumn, 1};
constexpr Term yPerColumn{"y per column", &MapTransform::yPerColumn, 2};
constexpr Term xPerRow{"x per row", &MapTransform::xPerRow, 3};
constexpr Term yPerRow{"y per row", &MapTransform::yPerRow, 4};

// A term of the transform that does not fit the others. The corners may move by half a pixel.
[[noreturn]] void refuseTerm(const Term& term, const MapTransform& transform, double fitting,
                             const Term& other, bool isWorldFile) {
    const auto named = [isWorldFile](const Term& one) {
        return std::string(one.name) +
               (isWorldFile ? " (line " + std::to_string(one.line) + ")" : std::string());
    };
    throw BadInput(named(term) + " is " + shortestText(transform.*term.value) + ", but must be " +
                   shortestText(fitting) + " beside " + named(other) + " of " +
                   shortestText(transform.*other.value) +
                   " for a rectangle with square pixels that is not mirrored; bring the picture into such a "
                   "raster");
}

MapRectangle rectangleOf(const MapTransform& transform, PixelSize size, bool isWorldFile) {
    MapRectangle rectangle;
    rectangle.pixel = length({transform.xPerColumn, transform.yPerColumn, 0.0});
    if (!(rectangle.pixel > 0.0)) {
        throw BadInput(isWorldFile ? "lines 1 and 2 are both 0, so that a pixel has no width; correct them"
                                   : "a pixel has no width; correct the tags");
    }
    const double tolerance = 0.5 * rectangle.pixel / size.height;
    if (std::abs(transform.yPerRow + transform.xPerColumn) > tolerance)
        refuseTerm(yPerRow, transform, -transform.xPerColumn, xPerColumn, isWorldFile);
    if (std::abs(transform.xPerRow - transform.yPerColumn) > tolerance)
        refuseTerm(xPerRow, transform, transform.yPerColumn, yPerColumn, isWorldFile);
    rectangle.cosine = transform.xPerColumn / rectangle.pixel;
    rectangle.sine = transform.yPerColumn / rectangle.pixel;
    rectangle.x = transform.x;
    rectangle.y = transform.y;
    return rectangle;
}

CornerPlace cornersOf(const MapRectangle& rectangle, PixelSize size, const MapPlace& place) {
    const TripleDouble xAxis = direction(place.xAxis);
    const TripleDouble yAxis = direction(place.yAxis);
    const auto pointOf = [&](double x, double y) { return place.origin + (x * xAxis + y * yAxis); };
    const double width = size.width * rectangle.pixel;
    const double height = size.height * rectangle.pixel;
    const double bottomX = rectangle.x + height * rectangle.sine;
    const double bottomY = rectangle.y - height * rectangle.cosine;
    return {pointOf(rectangle.x, rectangle.y), pointOf(bottomX, bottomY),
            pointOf(bottomX + width * rectangle.cosine, bottomY + width * rectangle.sine),
            1.0 / rectangle.pixel};
}

class Placing {
public:
    Placing(const Manifest& manifest, std::size_t index, const ImageFiles& files)
        : m_manifest(manifest)
        , m_index(index)
        , m_files(files) {}

    CornerPlace operator()(const CornerPlace& place) const { return place; }

    CornerPlace operator()(const DirectionPlace& place) const {
        const PixelSize size = picture().size;
        const TripleDouble width = size.width / place.pixelsPerUnit * direction(place.right);
        const TripleDouble height = size.height / place.pixelsPerUnit * direction(place.up);
        return {place.leftBottom + height, place.leftBottom, place.leftBottom + width, place.pixelsPerUnit};
    }

    CornerPlace operator()(const MapPlace& place) const {
        const PixelSize size = picture().size;
        if (!m_files.worldFile)
            return cornersOf(rectangleOfTags(size), size, place);
        const MapRectangle rectangle = rectangleOfWorldFile(size);
        if (place.worldFile.empty())
            refuseOtherTags(rectangle, size);
        return cornersOf(rectangle, size, place);
    }

private:
    const Picture& picture() const {
        if (const auto* const error = std::get_if<PictureError>(&m_files.picture)) {
            throw BadInput("the picture's pixels give the image its size, but " +
                           quoted(m_manifest.pictureFile(m_index)) + ": " + error->what() +
                           "; correct that, or give leftTop, leftBottom and rightBottom");
        }
        return std::get<Picture>(m_files.picture);
    }

    MapRectangle rectangleOfWorldFile(PixelSize size) const {
        try {
            return rectangleOf(m_files.worldFile->transform, size, true);
        } catch (const BadInput& failure) {
            throw BadInput("world file " + quoted(m_files.worldFile->path) + ": " + failure.what());
        }
    }

    MapRectangle rectangleOfTags(PixelSize size) const {
        const std::optional<GeoReference>& geo = picture().geo;
        if (!geo) {
            throw BadInput(
                "nothing says where the image lies: it has no corners, the picture is no GeoTIFF, "
                "and no world file (such as .pgw or .wld) lies beside it; give leftTop, leftBottom, "
                "rightBottom and pixelsPerUnit, or such a file");
        }
        if (!geo->problem.empty())
            throw BadInput(quoted(m_manifest.pictureFile(m_index)) + ": " + geo->problem);
        const DrawingUnit unit = m_manifest.images[m_index].unit;
        if (geo->unit && unit != Unitless && *geo->unit != unit) {
            throw BadInput("the picture's GeoTIFF tags are in " + std::string(unitName(*geo->unit)) +
                           ", but the image is in " + std::string(unitName(unit)) + "; write \"unit\": \"" +
                           std::string(unitName(*geo->unit)) + "\" in the image");
        }
        try {
            return rectangleOf(geo->transform, size, false);
        } catch (const BadInput& failure) {
            throw BadInput("the picture's GeoTIFF tags: " + std::string(failure.what()));
        }
    }

    // A world file that was found and not named may be left from another state of the picture.
    void refuseOtherTags(const MapRectangle& rectangle, PixelSize size) const {
        const std::optional<GeoReference>& geo = picture().geo;
        if (!geo || !geo->problem.empty())
            return;
        const CornerPlace byFile = cornersOf(rectangle, size, {});
        const CornerPlace byTags = cornersOf(rectangleOfTags(size), size, {});
        for (const TripleDouble CornerPlace::*corner :
             {&CornerPlace::leftTop, &CornerPlace::leftBottom, &CornerPlace::rightBottom}) {
            if (length(byFile.*corner - byTags.*corner) > 0.5 * rectangle.pixel) {
                throw BadInput("the world file " + quoted(m_files.worldFile->path) +
                               " and the picture's own GeoTIFF tags give different places; delete the world "
                               "file, or name it with \"worldFile\" where it is the right one");
            }
        }
    }

    const Manifest& m_manifest;
    std::size_t m_index;
    const ImageFiles& m_files;
};

CornerPlace inUnit(const CornerPlace& place, DrawingUnit from, DrawingUnit to) {
    if (from == to)
        return place;
    const ImageParam table;
    const double factor =
        table.getSizeInMillimeterOfDrawingUnit(from) / table.getSizeInMillimeterOfDrawingUnit(to);
    return {factor * place.leftTop, factor * place.leftBottom, factor * place.rightBottom,
            place.pixelsPerUnit / factor};
}

bool isInRange(const CornerPlace& place) {
    for (const TripleDouble& corner : {place.leftTop, place.leftBottom, place.rightBottom})
        for (const double coordinate : {corner.x, corner.y, corner.z})
            if (!(std::abs(coordinate) <= largestCoordinate))
                return false;
    return place.pixelsPerUnit > 0.0 && place.pixelsPerUnit <= largestCoordinate;
}

CornerPlace placeImage(const Manifest& manifest, std::size_t index, const ImageFiles& files) {
    const ManifestImage& image = manifest.images[index];
    const CornerPlace place =
        inUnit(std::visit(Placing(manifest, index, files), image.place), image.unit, manifest.unit);
    if (!isInRange(place)) {
        throw BadInput("in " + std::string(unitName(manifest.unit)) +
                       " its corners or pixels per unit would be beyond " + shortestText(largestCoordinate) +
                       "; correct its numbers or its unit");
    }
    return place;
}

} // namespace

std::vector<CornerPlace> placeImages(const Manifest& manifest, const std::vector<ImageFiles>& files) {
    std::vector<CornerPlace> places;
    BadInputList failures;
    for (std::size_t i = 0; i < manifest.images.size(); ++i) {
        try {
            places.push_back(placeImage(manifest, i, files[i]));
        } catch (const BadInput& failure) {
            failures.add(manifest.where(i) + ": " + failure.what());
        }
    }
    failures.throwIfAny();
    return places;
}

} // namespace rasterplan_tool
