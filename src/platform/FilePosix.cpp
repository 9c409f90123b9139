#include "platform/File.h"

#include "base/Utf8.h"

#include <stdexcept>
#include <string>

namespace rasterplan {
namespace {

/// Programs that the host starts meanwhile do not inherit the file ("e").
File open(const char* path, const char* mode) {
    File file(std::fopen(path, mode));
    if (file)
        std::setvbuf(file.get(), nullptr, _IONBF, 0);
    return file;
}

} // namespace

File openForReading(const std::filesystem::path& path) {
    return open(path.c_str(), "rbe");
}

File openForWriting(std::wstring_view path) {
    try {
        return open(ZelkBase::toUtf8(path).c_str(), "wbe");
    } catch (const std::range_error&) {
        return nullptr;
    }
}

} // namespace rasterplan
