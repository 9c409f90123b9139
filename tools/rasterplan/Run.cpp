#include "Run.h"

#include "CommandLine.h"
#include "Failure.h"
#include "Manifest.h"
#include "PathForm.h"
#include "PathText.h"
#include "PendingDrawing.h"
#include "PictureCheck.h"
#include "PlaneReport.h"
#include "ResultText.h"
#include "Site.h"

#include <algorithm>
#include <new>
#include <system_error>

namespace fs = std::filesystem;

namespace rasterplan_tool {

namespace {

constexpr double defaultAngleTolerance = 1.0;
constexpr double defaultDistanceToleranceInMillimeters = 100.0;

std::vector<std::wstring> drawingPaths(const Manifest& manifest, PathForm form,
                                       const fs::path& drawingFolder) {
    std::vector<std::wstring> paths;
    for (std::size_t i = 0; i < manifest.images.size(); ++i) {
        try {
            paths.push_back(
                drawingPath(form, manifest.images[i].path, manifest.pictureFile(i), drawingFolder));
        } catch (const BadInput& failure) {
            throw BadInput(manifest.where(i) + ": " + failure.what());
        }
    }
    return paths;
}

bool isSamePlace(const fs::path& a, const fs::path& b) {
    std::error_code ignored;
    return fs::equivalent(a, b, ignored) ||
           fs::weakly_canonical(a, ignored) == fs::weakly_canonical(b, ignored);
}

void refuseToReplaceInput(const fs::path& destination, const Manifest& manifest) {
    if (isSamePlace(destination, manifest.file)) {
        throw BadInput(
            quoted(destination) +
            ": this is SITE.json itself, which the drawing would replace; name another output file");
    }
    for (std::size_t i = 0; i < manifest.images.size(); ++i) {
        if (isSamePlace(destination, manifest.pictureFile(i))) {
            throw BadInput(quoted(destination) + ": this is the picture of image " + std::to_string(i + 1) +
                           ", which the drawing would replace; name another output file");
        }
    }
}

Tolerance toleranceOf(const CommandLine& commandLine, const ImageParam& image) {
    const double millimetersPerUnit = image.getSizeInMillimeterOfDrawingUnit(image.getDrawingUnit());
    return {
        commandLine.distanceTolerance.value_or(defaultDistanceToleranceInMillimeters / millimetersPerUnit),
        commandLine.angleTolerance.value_or(defaultAngleTolerance)};
}

// What the library throws here it throws before anything is opened.
RasterPlanWriter::ErrorEnum write(RasterPlanWriter& drawing, const std::optional<Plane>& plane) {
    try {
        return plane ? drawing.create2DDxf(plane->origin, plane->xAxis, plane->yAxis) : drawing.create3DDxf();
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        throw ExportFailed(
            plane ? "the images cannot be brought into the reference plane; give another one with "
                    "--origin, --x-axis and --y-axis"
                  : std::string("the library failed unexpectedly: ") + error.what());
    }
}

void writeDrawing(const CommandLine& commandLine, Console& console) {
    const Manifest manifest = readManifest(commandLine.site);
    PendingDrawing pending(commandLine.output);
    refuseToReplaceInput(pending.destination(), manifest);

    const std::vector<ImageParam> images = makeImages(
        manifest, drawingPaths(manifest, commandLine.pathForm, pending.destination().parent_path()));
    RasterPlanWriter drawing(wideFromPath(pending.temporary()).c_str());
    addImages(drawing, manifest, images);
    checkManifest(manifest, console);
    checkPictures(manifest, images, console);

    std::optional<Plane> plane;
    if (commandLine.command == Command::Write2d) {
        plane = commandLine.plane ? *commandLine.plane : proposePlane(drawing);
        checkPlane(manifest, *plane, images, toleranceOf(commandLine, images.back()), console);
    }
    const RasterPlanWriter::ErrorEnum result = write(drawing, plane);
    if (result != RasterPlanWriter::Success) {
        throw ExportFailed(quoted(pending.destination()) + ": " + std::string(writeResultText(result)));
    }
    const std::uintmax_t size = pending.putInPlace();
    console.out << "wrote " + shownText(pending.destination()) + ": " + std::to_string(images.size()) +
                       (images.size() == 1 ? " image, " : " images, ") + std::to_string(size) + " bytes\n";
}

void showPlane(const CommandLine& commandLine, Console& console) {
    const Manifest manifest = readManifest(commandLine.site);
    const std::vector<ImageParam> images =
        makeImages(manifest, drawingPaths(manifest, PathForm::AsGiven, {}));
    RasterPlanWriter drawing;
    addImages(drawing, manifest, images);
    checkManifest(manifest, console);
    (commandLine.json ? printPlaneAsJson : printPlane)(console.out, manifest, proposePlane(drawing), images);
}

void obey(const std::vector<std::string>& arguments, Console& console) {
    const CommandLineResult parsed = parseCommandLine(arguments);
    if (!parsed.commandLine) {
        console.out << parsed.answer;
    } else if (parsed.commandLine->command == Command::ShowPlane) {
        showPlane(*parsed.commandLine, console);
    } else {
        writeDrawing(*parsed.commandLine, console);
    }
    if (!console.out.flush()) {
        throw ExportFailed("the result could not be printed; the disk is probably full");
    }
}

} // namespace

int run(const std::vector<std::string>& arguments, Console console) noexcept {
    ExitStatus status = ExitStatus::Success;
    try {
        obey(arguments, console);
    } catch (const Failure& failure) {
        status = failure.status();
        console.error(failure.what());
    } catch (const std::bad_alloc&) {
        status = ExitStatus::ExportFailed;
        console.error("the memory ran out; close other programs or export fewer images at once");
    } catch (const std::exception& failure) {
        status = ExitStatus::ExportFailed;
        console.error(std::string("the system failed unexpectedly: ") + failure.what());
    }
    return static_cast<int>(status);
}

} // namespace rasterplan_tool
