#include "platform/File.h"

#include <share.h>

#include <string>

namespace rasterplan {

File openForReading(const std::filesystem::path& path) {
    return File(_wfsopen(path.c_str(), L"rbN", _SH_DENYNO));
}

File openForWriting(std::wstring_view path) {
    File file(_wfsopen(std::wstring(path).c_str(), L"wbN", _SH_DENYNO));
    if (file)
        std::setvbuf(file.get(), nullptr, _IONBF, 0);
    return file;
}

} // namespace rasterplan
