#include "commands/ShowCorners.h"

#include "base/NumberText.h"
#include "drawing/PathForm.h"
#include "report/PictureCheck.h"
#include "site/Site.h"
#include "site/UnitNames.h"

#include <nlohmann/json.hpp>

#include <sstream>

namespace rasterplan_tool {
namespace {

// A reader of JSON takes "-0" for a whole number, and those have no negative zero.
std::string numberText(double number) {
    const std::string text = shortestText(number);
    return text == "-0" ? "-0.0" : text;
}

std::string pointText(const TripleDouble& point) {
    return '[' + numberText(point.x) + ", " + numberText(point.y) + ", " + numberText(point.z) + ']';
}

std::string quotedText(std::string_view text) {
    return nlohmann::json(text).dump();
}

void print(std::ostream& out, const Site& site) {
    out << "{\n  \"unit\": " << quotedText(unitName(site.manifest.unit)) << ",\n  \"images\": [";
    for (std::size_t i = 0; i < site.places.size(); ++i) {
        const ManifestImage& image = site.manifest.images[i];
        const CornerPlace& place = site.places[i];
        out << (i == 0 ? "\n" : ",\n") << "    {\n      \"path\": " << quotedText(image.path);
        if (!image.name.empty())
            out << ",\n      \"name\": " << quotedText(image.name);
        out << ",\n      \"leftTop\": " << pointText(place.leftTop)
            << ",\n      \"leftBottom\": " << pointText(place.leftBottom)
            << ",\n      \"rightBottom\": " << pointText(place.rightBottom)
            << ",\n      \"pixelsPerUnit\": " << numberText(place.pixelsPerUnit) << "\n    }";
    }
    out << "\n  ]\n}\n";
}

} // namespace

void execute(const ShowCorners& command, Console& console, const MemoryWatch& memory) {
    const Site site = readSite(command.site, PicturesToRead::Needed, console);
    RasterPlanWriter drawing;
    addImages(drawing, site.manifest, makeImages(site, drawingPaths(site, PathForm::AsGiven, {})));
    Notices notices;
    checkManifest(site.manifest, notices);
    notices.tell(console);
    std::ostringstream report; // all of it or nothing
    print(report, site);
    memory.require();
    console.out << report.view();
    console.flush();
}

} // namespace rasterplan_tool
