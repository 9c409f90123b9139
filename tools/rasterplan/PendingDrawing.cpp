#include "PendingDrawing.h"

#include "Failure.h"
#include "PathText.h"

#include <algorithm>
#include <array>
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
    if (!destination.has_filename()) {
        throw ExportFailed(name + ": this is a folder; name a file in it, such as site.dxf");
    }
    if (!fs::is_directory(destination.parent_path(), ignored)) {
        throw ExportFailed(name + ": the folder " + quoted(destination.parent_path()) +
                           " does not exist; create it or name another one");
    }
    const fs::file_status status = fs::status(destination, ignored);
    if (!fs::exists(status)) {
        return;
    }
    if (fs::is_directory(status)) {
        throw ExportFailed(name + ": this is a folder; name a file in it, such as site.dxf");
    }
    if (!fs::is_regular_file(status)) {
        throw ExportFailed(name + ": this is a device or a pipe; a drawing can only be written to a file");
    }
    // Renaming would replace a write-protected file all the same; its owner did not mean that.
    if (!std::ofstream(destination, std::ios::binary | std::ios::app).is_open()) {
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
        if (!fs::exists(fs::symlink_status(place, ignored))) {
            return place;
        }
    }
}

// The library does not notice a full disk. Every complete drawing ends with the pair 0, EOF.
bool endsComplete(const fs::path& drawing, std::uintmax_t size) {
    constexpr std::uintmax_t longestEnd = 256;
    std::ifstream stream(drawing, std::ios::binary);
    stream.seekg(static_cast<std::streamoff>(size - std::min(size, longestEnd)));
    std::array<char, longestEnd> buffer;
    stream.read(buffer.data(), buffer.size());
    std::string_view end(buffer.data(), static_cast<std::size_t>(stream.gcount()));

    const auto takeLastLine = [&end] {
        const std::size_t last = end.find_last_not_of(" \r\n");
        end = end.substr(0, last == std::string_view::npos ? 0 : last + 1);
        const std::size_t start = end.find_last_of(" \r\n");
        const std::string_view line = end.substr(start == std::string_view::npos ? 0 : start + 1);
        end.remove_suffix(line.size());
        return line;
    };
    return takeLastLine() == "EOF" && takeLastLine() == "0";
}

} // namespace

PendingDrawing::PendingDrawing(const fs::path& output) {
    if (output.empty()) {
        throw ExportFailed("the output path is empty; name a file, such as site.dxf");
    }
    const fs::path place = followLinks(fs::absolute(output));
    m_destination = fs::weakly_canonical(place.parent_path()) / place.filename();
    requireWritable(m_destination);
    m_temporary = unusedNameIn(m_destination.parent_path());
}

PendingDrawing::~PendingDrawing() {
    std::error_code ignored;
    fs::remove(m_temporary, ignored);
}

std::uintmax_t PendingDrawing::putInPlace() {
    std::error_code error;
    const std::uintmax_t size = fs::file_size(m_temporary, error);
    if (error || !endsComplete(m_temporary, size)) {
        throw ExportFailed(
            quoted(m_destination) +
            ": the drawing came out incomplete and was discarded; the disk is probably full: make "
            "room and try again");
    }
    const fs::file_status replaced = fs::status(m_destination, error);
    if (fs::exists(replaced)) {
        fs::permissions(m_temporary, replaced.permissions(), error);
    }
    fs::rename(m_temporary, m_destination, error);
    if (error) {
        throw ExportFailed(quoted(m_destination) + ": the finished drawing cannot be put in place (" +
                           error.message() +
                           "); close the program that holds the file open, or name another file");
    }
    return size;
}

} // namespace rasterplan_tool
