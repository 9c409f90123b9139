// The input is a picture's file. Its size is read or refused in words, and that of a PNG is what stands in
// its header.

#include "fuzz/Fuzzing.h"

#include "picture/PictureHeader.h"

#include <string>

#include <sys/mman.h>
#include <unistd.h>

namespace {

using namespace rasterplan_tool;
using rasterplan::fuzz::demand;

// A file without a place on any disk.
class MemoryFile {
public:
    MemoryFile(const std::uint8_t* data, std::size_t size)
        : m_file(memfd_create("picture", MFD_CLOEXEC)) {
        demand(write(m_file, data, size) == static_cast<ssize_t>(size), "cannot write to memory");
    }
    ~MemoryFile() { close(m_file); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    std::string path() const { return "/proc/self/fd/" + std::to_string(m_file); }

private:
    int m_file;
};

std::uint32_t bigEndian(const std::uint8_t* bytes) {
    return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 | std::uint32_t{bytes[2]} << 8 |
           bytes[3];
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const MemoryFile file(data, size);
    try {
        const PixelSize pixels = readPixelSize(file.path());
        demand(pixels.width > 0 && pixels.height > 0, "a picture without pixels");
        if (data[0] != 0xFF) { // a PNG: signature, length and name of the header come before
            demand(size >= 24 && bigEndian(data + 16) == pixels.width &&
                       bigEndian(data + 20) == pixels.height,
                   "another size than the header's");
        }
    } catch (const PictureError& error) {
        demand(*error.what() != '\0', "a failure without words");
    }
    return 0;
}
