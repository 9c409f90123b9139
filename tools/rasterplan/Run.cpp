#include "Run.h"

#include "CommandLine.h"
#include "Failure.h"
#include "Manifest.h"
#include "PathForm.h"
#include "PathText.h"
#include "PendingDrawing.h"
#include "PictureCheck.h"
#include "PlaneReport.h"
#include "Resources.h"
#include "ResultText.h"
#include "Site.h"
#include "TemplateFile.h"
#include "Vector.h"
#include "VisibleText.h"

#include <algorithm>
#include <cerrno>
#include <new>
#include <sstream>
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

fs::path withoutLinks(const fs::path& path) {
    std::error_code error;
    const fs::path real = fs::weakly_canonical(path, error);
    throwIfExhausted(error);
    return error ? path : real;
}

bool isSamePlace(const fs::path& a, const fs::path& b) {
    std::error_code ignored;
    return fs::equivalent(a, b, ignored) || withoutLinks(a) == withoutLinks(b);
}

void refuseToReplaceInput(const fs::path& destination, const Manifest& manifest) {
    if (isSamePlace(destination, manifest.file)) {
        throw BadInput(
            quoted(destination) +
            ": this is SITE.json itself, which the drawing would replace; name another output file");
    }
    if (isTemplate(destination)) {
        throw BadInput(
            quoted(destination) +
            ": this is the template of all drawings, which this one would replace; name another output file");
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

void flush(Console& console) {
    if (!console.out.flush()) {
        throw ExportFailed(
            "the result could not be printed; the disk is probably full, or the output is closed");
    }
}

void writeDrawing(const CommandLine& commandLine, Console& console, const MemoryWatch& memory) {
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
    if (result == RasterPlanWriter::DxfFailure && plane && isFarOff(*plane, images)) {
        throw ExportFailed(
            quoted(pending.destination()) +
            ": so far from the plane's origin the images have lost their shape; give an --origin "
            "near them");
    }
    if (result != RasterPlanWriter::Success)
        throw ExportFailed(quoted(pending.destination()) + ": " + std::string(writeResultText(result)));
    const std::uintmax_t size = pending.check(images.size());
    memory.require();
    // Printed first: where that fails, the run has failed and the old drawing stays.
    console.out << shownText(pending.destination()) + ": " + std::to_string(images.size()) +
                       (images.size() == 1 ? " image, " : " images, ") + std::to_string(size) + " bytes\n";
    flush(console);
    pending.putInPlace();
}

void showPlane(const CommandLine& commandLine, Console& console, const MemoryWatch& memory) {
    const Manifest manifest = readManifest(commandLine.site);
    const std::vector<ImageParam> images =
        makeImages(manifest, drawingPaths(manifest, PathForm::AsGiven, {}));
    RasterPlanWriter drawing;
    addImages(drawing, manifest, images);
    checkManifest(manifest, console);
    std::ostringstream report; // all of it or nothing
    (commandLine.json ? printPlaneAsJson : printPlane)(report, manifest, proposePlane(drawing), images);
    memory.require();
    console.out << report.view();
    flush(console);
}

void obey(const ArgumentReader& readArguments, Console& console, const MemoryWatch& memory) {
    const CommandLineResult parsed = parseCommandLine(readArguments());
    memory.require();
    if (!parsed.commandLine) {
        console.out << parsed.answer;
        flush(console);
    } else if (parsed.commandLine->command == Command::ShowPlane) {
        showPlane(*parsed.commandLine, console, memory);
    } else {
        writeDrawing(*parsed.commandLine, console, memory);
    }
}

// As obey, but what the system's libraries throw is put in words too.
void obeyInWords(const ArgumentReader& readArguments, Console& console, const MemoryWatch& memory) {
    try {
        obey(readArguments, console, memory);
    } catch (const Failure&) {
        throw;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::system_error& error) {
        throwIfExhausted(error.code());
        throw ExportFailed("the system failed unexpectedly: " + visible(error.what()));
    } catch (const std::exception& error) {
        throw ExportFailed("the system failed unexpectedly: " + visible(error.what()));
    }
}

} // namespace

int run(const ArgumentReader& readArguments, Console console) noexcept {
    const MemoryWatch memory;
    try {
        obeyInWords(readArguments, console, memory);
        return static_cast<int>(ExitStatus::Success);
    } catch (const Failure& failure) {
        if (!memory.ranOut()) { // otherwise it is a mere consequence
            console.error(failure.what());
            return static_cast<int>(failure.status());
        }
    } catch (const std::bad_alloc&) {
        // said below, without another allocation
    }
    console.error("the memory ran out; close other programs or export fewer images at once");
    return static_cast<int>(ExitStatus::ExportFailed);
}

} // namespace rasterplan_tool
