#include "commands/ShowPlane.h"

#include "drawing/PathForm.h"
#include "report/PictureCheck.h"
#include "report/PlaneReport.h"
#include "site/Site.h"

#include <sstream>

namespace rasterplan_tool {

void execute(const ShowPlane& command, Console& console, const MemoryWatch& memory) {
    const Site site = readSite(command.site, PicturesToRead::Needed, console);
    const std::vector<ImageParam> images = makeImages(site, drawingPaths(site, PathForm::AsGiven, {}));
    RasterPlanWriter drawing;
    addImages(drawing, site.manifest, images);
    Notices notices;
    checkManifest(site.manifest, notices);
    notices.tell(console);
    std::ostringstream report; // all of it or nothing
    (command.json ? printPlaneAsJson : printPlane)(report, site.manifest, proposePlane(drawing), images);
    memory.require();
    console.out << report.view();
    console.flush();
}

} // namespace rasterplan_tool
