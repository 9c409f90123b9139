// The input is a SITE.json. Whatever it is, it is read or refused in words that a terminal may get, and what
// is read is what the tool promises of a site; a plane that is proposed for it is printed as JSON that can be
// read.

#include "fuzz/Fuzzing.h"

#include "base/Failure.h"
#include "base/NumberText.h"
#include "base/VisibleText.h"
#include "drawing/PathForm.h"
#include "report/PictureCheck.h"
#include "report/PlaneReport.h"
#include "site/JsonText.h"
#include "site/Manifest.h"
#include "site/Site.h"

#include <cmath>
#include <sstream>
#include <string_view>

namespace {

using namespace rasterplan_tool;
using rasterplan::fuzz::demand;

void demandVisible(std::string_view text) {
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        demand(visible(line) == line, "steers a terminal: " + visible(line));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
    }
}

void demandGood(const TripleDouble& point) {
    for (const double coordinate : {point.x, point.y, point.z})
        demand(std::abs(coordinate) <= largestCoordinate, "a coordinate that no drawing holds");
}

void demandGood(const Manifest& manifest) {
    demand(!manifest.images.empty(), "a site without images");
    std::size_t line = 1;
    for (std::size_t i = 0; i < manifest.images.size(); ++i) {
        const ManifestImage& image = manifest.images[i];
        demand(!image.path.empty() && !breaksLines(image.path), "a path that no line holds");
        demand(image.line >= line, "an image above the one before");
        line = image.line;
        demandVisible(manifest.where(i));
    }
}

// The site, as if every picture were a GeoTIFF of 17 x 9 pixels; no file is touched.
Site placed(const Manifest& manifest) {
    const MapTransform transform{.x = 100.0, .y = 200.0, .xPerColumn = 0.5, .yPerRow = -0.5};
    const Picture picture{PictureFormat::Tiff, {17, 9}, false, GeoReference{transform, "", std::nullopt}};
    Site site{manifest, std::vector<ImageFiles>(manifest.images.size(), {{}, picture, std::nullopt}), {}};
    site.places = placeImages(site.manifest, site.files);
    for (const CornerPlace& place : site.places) {
        demandGood(place.leftTop);
        demandGood(place.leftBottom);
        demandGood(place.rightBottom);
        demand(place.pixelsPerUnit > 0.0 && place.pixelsPerUnit <= largestCoordinate, "no pixels per unit");
    }
    return site;
}

void demandReport(const Site& site, Console& console) {
    const Manifest& manifest = site.manifest;
    std::vector<std::wstring> paths;
    for (const ManifestImage& image : manifest.images)
        paths.push_back(drawingPath(PathForm::AsGiven, image.path, {}, {}));
    const std::vector<ImageParam> images = makeImages(site, paths);
    RasterPlanWriter drawing;
    addImages(drawing, manifest, images);
    Notices notices;
    checkManifest(manifest, notices);
    const Plane plane = proposePlane(drawing);
    checkPlane(manifest, plane, images, {}, notices);
    notices.tell(console);

    std::ostringstream table;
    printPlane(table, manifest, plane, images);
    demandVisible(table.view());

    std::ostringstream json;
    printPlaneAsJson(json, manifest, plane, images);
    const JsonValue report = parseJson(json.view());
    const auto* const members = report.as<JsonValue::Object>();
    demand(members != nullptr && members->size() == 6, "a report without its members");
    const auto* const list = members->back().value.as<JsonValue::Array>();
    demand(list != nullptr && list->size() == images.size(), "a report without its images");
    for (std::size_t i = 0; i < list->size(); ++i) {
        const auto* const row = (*list)[i].as<JsonValue::Object>();
        const std::string* const path = (*row)[1].value.as<std::string>();
        demand(path != nullptr && *path == manifest.images[i].path, "another path in the report");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::ostringstream out;
    std::ostringstream err;
    Console console{out, err};
    try {
        const Manifest manifest =
            parseManifest({reinterpret_cast<const char*>(data), size}, "bilder\x1B/SITE.json");
        demandGood(manifest);
        demandReport(placed(manifest), console);
    } catch (const Failure& failure) {
        demand(failure.status() == ExitStatus::BadInput, "an input is no failure of the system");
        demand(*failure.what() != '\0', "a failure without words");
        console.error(failure.what());
    }
    demandVisible(err.view());
    return 0;
}
