#include "drawing/PendingDrawing.h"

#include "base/Failure.h"
#include "base/PathText.h"
#include "base/Resources.h"
#include "drawing/WrittenDrawing.h"

#include <cerrno>
#include <fstream>
#include <string>
#include <string_view>

namespace rasterplan_tool {
namespace {

void overwrite(const std::filesystem::path& file, std::uintmax_t place, std::string_view text) {
    errno = 0;
    std::fstream stream(file, std::ios::binary | std::ios::in | std::ios::out);
    if (!stream.is_open())
        throwIfExhausted(errno);
    stream.seekp(static_cast<std::streamoff>(place));
    stream << text;
    stream.close();
    if (stream.fail())
        throw ExportFailed("the finished drawing cannot be changed; try again");
}

} // namespace

std::uintmax_t PendingDrawing::finish(std::size_t images) {
    const WrittenDrawing drawing = readBack(temporary());
    const std::string name = quoted(destination());
    if (!drawing.isComplete) { // the library does not notice a full disk
        throw ExportFailed(
            name +
            ": the drawing came out incomplete and was discarded; the disk is probably full: make room and "
            "try again");
    }
    if (drawing.images >= images && drawing.imageDefinitions >= images) {
        if (drawing.viewModeAsReal)
            overwrite(temporary(), *drawing.viewModeAsReal, "  0");
        return drawing.size;
    }
    if (drawing.images == drawing.imageDefinitions && drawing.images > 0) { // the library left some out
        throw ExportFailed(
            name + ": only " + std::to_string(drawing.images) + " of the " + std::to_string(images) +
            " images came into the drawing, which was discarded; so far from the plane's origin "
            "the others have lost their shape: give an --origin near the images");
    }
    throw ExportFailed(
        name +
        ": the images did not come into the drawing, which was discarded, because the file "
        "\"PrepImageAbschnitte_2010.template\" beside the RasterPlanWriter library has no place for them; "
        "install the program again");
}

} // namespace rasterplan_tool
