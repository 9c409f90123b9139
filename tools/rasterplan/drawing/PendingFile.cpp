#include "drawing/PendingFile.h"

#include "base/Failure.h"
#include "base/PathText.h"
#include "base/Resources.h"
#include "drawing/ReplacedFile.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <fstream>
#include <random>
#include <string>
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

void requireWritable(const fs::path& destination, const PendingFileWords& words) {
    const std::string name = quoted(destination);
    std::error_code ignored;
    if (!destination.has_filename())
        throw ExportFailed(name + ": this is a folder; name a file in it, such as " + words.example);
    if (!fs::is_directory(destination.parent_path(), ignored)) {
        throw ExportFailed(name + ": the folder " + quoted(destination.parent_path()) +
                           " does not exist; create it or name another one");
    }
    const fs::file_status status = fs::status(destination, ignored);
    if (!fs::exists(status))
        return;
    if (fs::is_directory(status))
        throw ExportFailed(name + ": this is a folder; name a file in it, such as " + words.example);
    if (!fs::is_regular_file(status)) {
        throw ExportFailed(name + ": this is a device or a pipe; a " + words.kind +
                           " can only be written to a file");
    }
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

fs::path destinationOf(const fs::path& output, const PendingFileWords& words) {
    const fs::path place = followLinks(fs::absolute(output));
    fs::path destination = fs::weakly_canonical(place.parent_path()) / place.filename();
    requireWritable(destination, words);
    return destination;
}

} // namespace

PendingFile::PendingFile(const fs::path& output, const PendingFileWords& words)
    : m_words(words)
    , m_destination(destinationOf(output, words))
    , m_temporary(unusedNameIn(m_destination.parent_path())) {}

void PendingFile::putInPlace() {
    takeOver(m_destination, temporary());
    std::error_code error;
    fs::rename(temporary(), m_destination, error);
    if (error) {
        throw ExportFailed(quoted(m_destination) + ": the finished " + m_words.kind +
                           " cannot be put in place (" + error.message() +
                           "); close the program that holds the file open, or name another file");
    }
}

} // namespace rasterplan_tool
