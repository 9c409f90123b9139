#include "base/FileStream.h"

namespace rasterplan_tool {

std::FILE* openForReading(const std::filesystem::path& file) {
    return _wfopen(file.c_str(), L"rb");
}

bool seekTo(std::FILE* stream, std::uint64_t offset) {
    return _fseeki64(stream, static_cast<__int64>(offset), SEEK_SET) == 0;
}

} // namespace rasterplan_tool
