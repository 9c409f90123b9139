#include "site/Site.h"

#include "base/Failure.h"
#include "base/NumberText.h"
#include "base/ResultText.h"
#include "base/Vector.h"

#include <algorithm>

namespace rasterplan_tool {
namespace {

constexpr double shortestSide = 1e-10;

// The fields that give an image its shape.
std::string_view fieldsToCorrect(const ImagePlace& place) {
    if (std::holds_alternative<CornerPlace>(place))
        return "leftTop, leftBottom or rightBottom";
    return std::holds_alternative<DirectionPlace>(place) ? "right or up" : "the plane's xAxis or yAxis";
}

std::string noRectangleText(const ImagePlace& place, const ImageParam& image) {
    const std::string advice = "; correct " + std::string(fieldsToCorrect(place));
    const double shorter = std::min(image.getImgWidth(), image.getImgHeight());
    if (!(shorter > shortestSide)) {
        return "the corners are no rectangle: it is " + shortestText(image.getImgWidth()) + " wide and " +
               shortestText(image.getImgHeight()) + " high" + advice;
    }
    return "the corners are no rectangle: the angle at leftBottom is " +
           fixedText(angleDegrees(image.getImgUVector(), image.getImgVVector()), 3) +
           " degrees instead of 90" + advice;
}

constexpr std::string_view noPlaneText =
    "the images have no common plane: they face opposite ways or differ too much in direction; give a plane "
    "with "
    "rasterplan 2d and --origin, --x-axis and --y-axis, or list only the images of one side";

} // namespace

Site readSite(const std::filesystem::path& file, PicturesToRead which, Console& console) {
    Site site{readManifest(file), {}, {}};
    Progress progress(console.err, "reading pictures");
    site.files = readImageFiles(site.manifest, which, progress);
    site.places = placeImages(site.manifest, site.files);
    return site;
}

std::vector<ImageParam> makeImages(const Site& site, const std::vector<std::wstring>& paths) {
    std::vector<ImageParam> images;
    BadInputList failures;
    for (std::size_t i = 0; i < site.places.size(); ++i) {
        const CornerPlace& place = site.places[i];
        ImageParam image(paths[i].c_str());
        image.setDrawingUnit(site.manifest.unit);
        image.setNumberPixelPerUnit(place.pixelsPerUnit);
        try {
            image.setImageCorners(place.leftTop, place.leftBottom, place.rightBottom);
        } catch (const std::bad_alloc&) {
            throw;
        } catch (const std::exception&) {
            failures.add(site.manifest.where(i) + ": a side of the image has no length; correct " +
                         std::string(fieldsToCorrect(site.manifest.images[i].place)));
        }
        images.push_back(std::move(image));
    }
    failures.throwIfAny();
    return images;
}

void addImages(RasterPlanWriter& drawing, const Manifest& manifest, const std::vector<ImageParam>& images) {
    BadInputList failures;
    for (std::size_t i = 0; i < images.size(); ++i) {
        RasterPlanWriter::ErrorEnum result = RasterPlanWriter::InvalidGeometry;
        try {
            result = drawing.add(images[i]);
        } catch (const std::bad_alloc&) {
            throw;
        } catch (const std::exception&) {
            // the image's own coordinate frame is singular: no rectangle either
        }
        if (result == RasterPlanWriter::InvalidGeometry)
            failures.add(manifest.where(i) + ": " + noRectangleText(manifest.images[i].place, images[i]));
        else if (result != RasterPlanWriter::Success)
            throw ExportFailed(manifest.where(i) + ": " + std::string(writeResultText(result)));
    }
    failures.throwIfAny();
}

Plane proposePlane(const RasterPlanWriter& drawing) {
    Plane plane;
    RasterPlanWriter::ErrorEnum result = RasterPlanWriter::InvalidGeometry;
    try {
        result = drawing.calcMiddledImagePlaneReferenceCoordSystem3D(plane.origin, plane.xAxis, plane.yAxis);
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception&) {
        // the plane's frame is singular: no common plane either
    }
    if (result != RasterPlanWriter::Success && result != RasterPlanWriter::InvalidGeometry)
        throw ExportFailed(std::string(writeResultText(result)));
    if (result == RasterPlanWriter::InvalidGeometry || !spansPlane(plane))
        throw BadInput(std::string(noPlaneText));
    for (TripleDouble* const triple : {&plane.origin, &plane.xAxis, &plane.yAxis})
        *triple = *triple + TripleDouble(); // -0 is shown to nobody
    return plane;
}

} // namespace rasterplan_tool
