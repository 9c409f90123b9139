#include "platform/File.h"

#include "base/Utf8.h"

#include <stdexcept>
#include <string>

namespace rasterplan {

// Programs that the host starts meanwhile do not inherit the file ("e").

File openForReading(const std::filesystem::path& path) {
    return File(std::fopen(path.c_str(), "rbe"));
}

File openForWriting(std::wstring_view path) {
    try {
        File file(std::fopen(ZelkBase::toUtf8(path).c_str(), "wbe"));
        if (file)
            std::setvbuf(file.get(), nullptr, _IONBF, 0);
        return file;
    } catch (const std::range_error&) {
        return nullptr;
    }
}

} // namespace rasterplan
