#include "base/FileStream.h"

namespace rasterplan_tool {

std::FILE* openForReading(const std::filesystem::path& file) {
    return std::fopen(file.c_str(), "rbe"); // no program that we start gets it
}

bool seekTo(std::FILE* stream, std::uint64_t offset) {
    return fseeko(stream, static_cast<off_t>(offset), SEEK_SET) == 0;
}

} // namespace rasterplan_tool
