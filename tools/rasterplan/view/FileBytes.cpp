#include "view/FileBytes.h"

#include "base/Resources.h"

#include <cerrno>
#include <fstream>

namespace rasterplan_tool {

std::optional<std::string> readFileBytes(const std::filesystem::path& file) {
    errno = 0;
    std::ifstream stream(file, std::ios::binary);
    std::string bytes;
    while (stream) { // a stream's iterators would throw where a folder is read
        constexpr std::size_t blockSize = 1 << 20;
        const std::size_t kept = bytes.size();
        bytes.resize(kept + blockSize);
        stream.read(bytes.data() + kept, blockSize);
        bytes.resize(kept + static_cast<std::size_t>(stream.gcount()));
    }
    if (stream.eof() && !stream.bad())
        return bytes;
    throwIfExhausted(errno);
    return std::nullopt;
}

} // namespace rasterplan_tool
