#include "drawing/PendingDrawing.h"

#include "base/Failure.h"
#include "base/PathText.h"
#include "base/Resources.h"
#include "drawing/ReplacedFile.h"
#include "drawing/WrittenDrawing.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <fstream>
#include <random>
#include <string>
#include <string_view>
#include <system_error>

namespace fs = std::filesystem;

namespace rasterplan_tool {
namespace {

constexpr int mostLinks = 40;

fs::path followLinks(const fs::path& output) {
    fs::path place = output;
    std::error_code ignored;
    for (int links = 0; fs::is_symlink(place, ignored); ++links) {
        if (links == mostLinks) {
            throw ExportFailed(quoted(output) +
                               ": the symbolic links lead in a circle; name another output file");
        }
        place = place.parent_path() / fs::read_symlink(place);
    }
    return place;
}

void requireWritable(const fs::path& destination) {
    const std::string name = quoted(destination);
    std::error_code ignored;
    if (!destination.has_filename())
        throw ExportFailed(name + ": this is a folder; name a file in it, such as site.dxf");
    if (!fs::is_directory(destination.parent_path(), ignored)) {
        throw ExportFailed(name + ": the folder " + quoted(destination.parent_path()) +
                           " does not exist; create it or name another one");
    }
    const fs::file_status status = fs::status(destination, ignored);
    if (!fs::exists(status))
        return;
    if (fs::is_directory(status))
        throw ExportFailed(name + ": this is a folder; name a file in it, such as site.dxf");
    if (!fs::is_regular_file(status))
        throw ExportFailed(name + ": this is a device or a pipe; a drawing can only be written to a file");
    // Renaming would replace a write-protected file all the same; its owner did not mean that.
    errno = 0;
    if (!std::ofstream(destination, std::ios::binary | std::ios::app).is_open()) {
        throwIfExhausted(errno);
        throw ExportFailed(name +
                           ": the file exists and cannot be written; take away its write protection, close "
                           "the program that holds it open, or name another file");
    }
}

fs::path unusedNameIn(const fs::path& folder) {
    std::random_device random;
    std::error_code ignored;
    for (;;) {
        std::array<char, 16> digits;
        const auto result = std::to_chars(digits.data(), digits.data() + digits.size(),
                                          (std::uint64_t{random()} << 32) | random(), 16);
        fs::path place = folder / ("rasterplan-" + std::string(digits.data(), result.ptr) + ".tmp");
        if (!fs::exists(fs::symlink_status(place, ignored)))
            return place;
    }
}

fs::path destinationOf(const fs::path& output) {
    const fs::path place = followLinks(fs::absolute(output));
    fs::path destination = fs::weakly_canonical(place.parent_path()) / place.filename();
    requireWritable(destination);
    return destination;
}

void overwrite(const fs::path& file, std::uintmax_t place, std::string_view text) {
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

PendingDrawing::PendingDrawing(const fs::path& output)
    : m_destination(destinationOf(output))
    , m_temporary(unusedNameIn(m_destination.parent_path())) {}

std::uintmax_t PendingDrawing::finish(std::size_t images) {
    const WrittenDrawing drawing = readBack(temporary());
    const std::string name = quoted(m_destination);
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

void PendingDrawing::putInPlace() {
    takeOver(m_destination, temporary());
    std::error_code error;
    fs::rename(temporary(), m_destination, error);
    if (error) {
        throw ExportFailed(quoted(m_destination) + ": the finished drawing cannot be put in place (" +
                           error.message() +
                           "); close the program that holds the file open, or name another file");
    }
}

} // namespace rasterplan_tool
