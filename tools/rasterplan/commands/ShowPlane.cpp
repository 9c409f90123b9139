#include "commands/ShowPlane.h"

#include "drawing/PathForm.h"
#include "report/PictureCheck.h"
#include "report/PlaneReport.h"
#include "site/Manifest.h"
#include "site/Site.h"

#include <sstream>

namespace rasterplan_tool {

void execute(const ShowPlane& command, Console& console, const MemoryWatch& memory) {
    const Manifest manifest = readManifest(command.site);
    const std::vector<ImageParam> images =
        makeImages(manifest, drawingPaths(manifest, PathForm::AsGiven, {}));
    RasterPlanWriter drawing;
    addImages(drawing, manifest, images);
    checkManifest(manifest, console);
    std::ostringstream report; // all of it or nothing
    (command.json ? printPlaneAsJson : printPlane)(report, manifest, proposePlane(drawing), images);
    memory.require();
    console.out << report.view();
    console.flush();
}

} // namespace rasterplan_tool
