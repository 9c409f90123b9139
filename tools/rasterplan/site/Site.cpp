#include "site/Site.h"

#include "base/Failure.h"
#include "base/NumberText.h"
#include "base/ResultText.h"
#include "base/Vector.h"

#include <algorithm>

namespace rasterplan_tool {
namespace {

constexpr double shortestSide = 1e-10;

std::string noRectangleText(const ImageParam& image) {
    const double shorter = std::min(image.getImgWidth(), image.getImgHeight());
    if (!(shorter > shortestSide)) {
        return "the corners are no rectangle: it is " + shortestText(image.getImgWidth()) + " wide and " +
               shortestText(image.getImgHeight()) + " high; correct leftTop, leftBottom or rightBottom";
    }
    return "the corners are no rectangle: the angle at leftBottom is " +
           fixedText(angleDegrees(image.getImgUVector(), image.getImgVVector()), 3) +
           " degrees instead of 90; correct leftTop, leftBottom or rightBottom";
}

constexpr std::string_view noPlaneText =
    "the images have no common plane: they face opposite ways or differ too much in direction; give a plane "
    "with "
    "rasterplan 2d and --origin, --x-axis and --y-axis, or list only the images of one side";

} // namespace

std::vector<ImageParam> makeImages(const Manifest& manifest, const std::vector<std::wstring>& paths) {
    std::vector<ImageParam> images;
    BadInputList failures;
    for (std::size_t i = 0; i < manifest.images.size(); ++i) {
        const ManifestImage& given = manifest.images[i];
        ImageParam image(paths[i].c_str());
        image.setDrawingUnit(given.unit);
        image.setNumberPixelPerUnit(given.pixelsPerUnit);
        try {
            image.setImageCorners(given.leftTop, given.leftBottom, given.rightBottom);
        } catch (const std::bad_alloc&) {
            throw;
        } catch (const std::exception&) {
            failures.add(manifest.where(i) +
                         ": a side of the image has no length; correct leftTop, leftBottom or "
                         "rightBottom");
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
            failures.add(manifest.where(i) + ": " + noRectangleText(images[i]));
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
    return plane;
}

} // namespace rasterplan_tool
