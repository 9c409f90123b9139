#include "picture/PictureHeader.h"

#include "base/Resources.h"
#include "picture/PictureDecoder.h"

#include <array>
#include <cerrno>
#include <fstream>
#include <string_view>
#include <system_error>

namespace fs = std::filesystem;

namespace rasterplan_tool {
namespace {

struct Signature {
    PictureFormat format;
    std::string_view bytes;
};

constexpr std::array<Signature, 2> signatures{{
    {PictureFormat::Png, "\x89PNG\r\n\x1a\n"},
    {PictureFormat::Jpeg, "\xFF\xD8\xFF"},
}};

} // namespace

PixelSize readPixelSize(const fs::path& file) {
    std::error_code ignored;
    const fs::file_status status = fs::status(file, ignored);
    if (!fs::exists(status))
        throw PictureError("there is no such file");
    if (!fs::is_regular_file(status))
        throw PictureError("this is not a file");
    errno = 0;
    std::ifstream stream(file, std::ios::binary);
    if (!stream.is_open()) {
        throwIfExhausted(errno);
        throw PictureError("the file cannot be opened");
    }
    std::array<char, 8> buffer{};
    stream.read(buffer.data(), buffer.size());
    const std::string_view beginning(buffer.data(), static_cast<std::size_t>(stream.gcount()));
    stream.close();
    for (const Signature& signature : signatures)
        if (beginning.starts_with(signature.bytes))
            return decodePixelSize(file, signature.format);
    throw PictureError("the file is neither PNG nor JPEG");
}

} // namespace rasterplan_tool
