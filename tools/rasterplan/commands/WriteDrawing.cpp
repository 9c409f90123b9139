#include "commands/WriteDrawing.h"

#include "base/Failure.h"
#include "base/PathText.h"
#include "base/ResultText.h"
#include "base/Vector.h"
#include "commands/ViewDrawing.h"
#include "drawing/CollectPictures.h"
#include "drawing/PendingDrawing.h"
#include "drawing/TemplateFile.h"
#include "report/PictureCheck.h"
#include "report/PlaneReport.h"
#include "site/Manifest.h"
#include "site/Site.h"

#include <algorithm>
#include <cerrno>
#include <new>
#include <system_error>

namespace fs = std::filesystem;

namespace rasterplan_tool {
namespace {

bool isSamePlace(const fs::path& a, const fs::path& b) {
    std::error_code ignored;
    return a == b || fs::equivalent(a, b, ignored);
}

[[noreturn]] void refuseToReplace(const fs::path& destination, const std::string& input) {
    throw BadInput(quoted(destination) + ": this is " + input +
                   ", which the drawing would replace; name another output file");
}

void refuseToReplaceInput(const fs::path& destination, const Site& site) {
    if (isSamePlace(destination, site.manifest.file))
        refuseToReplace(destination, "SITE.json itself");
    if (isTemplate(destination))
        refuseToReplace(destination, "the template of all drawings");
    for (std::size_t i = 0; i < site.files.size(); ++i) {
        const std::optional<WorldFile>& worldFile = site.files[i].worldFile;
        if (isSamePlace(destination, site.files[i].file))
            refuseToReplace(destination, "the picture of image " + std::to_string(i + 1));
        if (worldFile && isSamePlace(destination, worldFile->path))
            refuseToReplace(destination, "the world file of image " + std::to_string(i + 1));
    }
}

Tolerance toleranceOf(const WriteDrawing& command, DrawingUnit unit) {
    const Tolerance usual = defaultTolerance(unit);
    return {command.distanceTolerance.value_or(usual.distance),
            command.angleTolerance.value_or(usual.angleDegrees)};
}

// What the library throws here it throws before anything is opened.
RasterPlanWriter::ErrorEnum write(RasterPlanWriter& drawing, const std::optional<Plane>& plane) {
    errno = 0;
    try {
        const RasterPlanWriter::ErrorEnum result =
            plane ? drawing.create2DDxf(plane->origin, plane->xAxis, plane->yAxis) : drawing.create3DDxf();
        if (result == RasterPlanWriter::CannotOpenOutput || result == RasterPlanWriter::CannotOpenTemplate)
            throwIfExhausted(errno);
        return result;
    } catch (const Failure&) {
        throw;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        throw ExportFailed(
            plane ? "the images cannot be brought into the reference plane; give another one with "
                    "--origin, --x-axis and --y-axis"
                  : std::string("the library failed unexpectedly: ") + error.what());
    }
}

// The library leaves out images that have lost their shape by rounding; of a drawing without any it tells no
// more than of a damaged template.
bool isFarOff(const Plane& plane, const std::vector<ImageParam>& images) {
    constexpr double mostSizesAway = 1e12;
    return std::all_of(images.begin(), images.end(), [&plane](const ImageParam& image) {
        return length(image.getLeftBottomCorner() - plane.origin) >
               mostSizesAway * std::min(image.getImgWidth(), image.getImgHeight());
    });
}

void writeFile(const WriteDrawing& command, Console& console, const MemoryWatch& memory) {
    const Site site = readSite(command.site, PicturesToRead::All, console);
    const Manifest& manifest = site.manifest;
    PendingDrawing pending(command.output);
    refuseToReplaceInput(pending.destination(), site);
    const fs::path folder = pending.destination().parent_path();
    std::vector<PictureCopy> copies;
    if (command.pathForm == PathForm::Collected)
        copies = picturesToCollect(manifest, pending.destination());

    const std::vector<ImageParam> images = makeImages(site, drawingPaths(site, command.pathForm, folder));
    RasterPlanWriter drawing(wideFromPath(pending.temporary()).c_str());
    addImages(drawing, manifest, images);
    Notices notices;
    checkManifest(manifest, notices);
    checkPictures(site, images, notices);
    if (command.pathForm == PathForm::AsGiven)
        checkPathsAsGiven(manifest, folder, notices);

    std::optional<Plane> plane;
    if (command.flattened) {
        plane = command.plane ? *command.plane : proposePlane(drawing);
        checkPlane(manifest, *plane, images, toleranceOf(command, manifest.unit), notices);
    }
    notices.tell(console);
    Progress progress(console.err, "copying pictures");
    collectPictures(copies, pending.temporary(), progress); // before the drawing, which shall not lack one
    progress.hide();
    const RasterPlanWriter::ErrorEnum result = write(drawing, plane);
    if (result == RasterPlanWriter::DxfFailure && plane && isFarOff(*plane, images)) {
        throw ExportFailed(
            quoted(pending.destination()) +
            ": so far from the plane's origin the images have lost their shape; give an --origin "
            "near them");
    }
    if (result != RasterPlanWriter::Success)
        throw ExportFailed(quoted(pending.destination()) + ": " + std::string(writeResultText(result)));
    const std::uintmax_t size = pending.finish(images.size());
    memory.require();
    // Printed first: where that fails, the run has failed and the old drawing stays.
    console.out << shownText(pending.destination()) + ": " + std::to_string(images.size()) +
                       (images.size() == 1 ? " image, " : " images, ") + std::to_string(size) + " bytes\n";
    console.flush();
    pending.putInPlace();
}

} // namespace

void execute(const WriteDrawing& command, Console& console, const MemoryWatch& memory) {
    writeFile(command, console, memory);
    if (command.view)
        execute(ViewDrawing{command.output, {}, false}, console, memory);
}

} // namespace rasterplan_tool
