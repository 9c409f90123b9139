#include "platform/File.h"

#include <share.h>

#include <string>

namespace rasterplan {
namespace {

File open(const wchar_t* path, const wchar_t* mode) {
    File file(_wfsopen(path, mode, _SH_DENYNO));
    if (file)
        std::setvbuf(file.get(), nullptr, _IONBF, 0);
    return file;
}

} // namespace

File openForReading(const std::filesystem::path& path) {
    return open(path.c_str(), L"rbN");
}

File openForWriting(std::wstring_view path) {
    return open(std::wstring(path).c_str(), L"wbN");
}

} // namespace rasterplan
