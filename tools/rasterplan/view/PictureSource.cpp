#include "view/PictureSource.h"

#include "base/Failure.h"
#include "base/PathText.h"
#include "base/Resources.h"
#include "view/Base64.h"
#include "view/FileBytes.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fstream>
#include <system_error>

namespace fs = std::filesystem;

namespace rasterplan_tool {
namespace {

struct MediaType {
    std::string_view name;
    std::string_view signature; // '?' is any byte
};

constexpr std::array<MediaType, 7> mediaTypes{{
    {"image/png", "\x89PNG\r\n\x1a\n"},
    {"image/jpeg", "\xff\xd8\xff"},
    {"image/gif", "GIF87a"},
    {"image/gif", "GIF89a"},
    {"image/bmp", "BM"},
    {"image/webp", "RIFF????WEBP"},
    {"image/avif", "????ftypavif"},
}};

bool begins(std::string_view bytes, std::string_view signature) {
    return bytes.size() >= signature.size() &&
           std::equal(signature.begin(), signature.end(), bytes.begin(),
                      [](char wanted, char found) { return wanted == '?' || wanted == found; });
}

// Everything that could mean something else in an address stands as its bytes.
std::string addressText(std::string_view path) {
    constexpr std::string_view plain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
    std::string text;
    for (const char each : path) {
        if (plain.find(each) != std::string_view::npos) {
            text += each;
        } else {
            constexpr std::string_view digits = "0123456789ABCDEF";
            const auto byte = static_cast<unsigned char>(each);
            text += {'%', digits[byte >> 4U], digits[byte & 0xFU]};
        }
    }
    return text;
}

std::string bytesOf(const fs::path& path) {
    const std::u8string text = path.generic_u8string();
    return {text.begin(), text.end()};
}

} // namespace

std::optional<fs::path> findPicture(std::string_view path, const fs::path& drawingFolder) {
    if (path.empty())
        return std::nullopt;
    std::string slashes(path);
    std::replace(slashes.begin(), slashes.end(), '\\', '/');
    const std::string_view name = std::string_view(slashes).substr(slashes.rfind('/') + 1);
    for (const std::string_view candidate : {path, std::string_view(slashes), name}) {
        const fs::path file = drawingFolder / pathFromUtf8(candidate);
        std::error_code error;
        if (fs::is_regular_file(file, error))
            return fs::weakly_canonical(file.parent_path()) / file.filename();
        throwIfExhausted(error);
    }
    return std::nullopt;
}

std::string_view mediaType(const fs::path& picture) {
    errno = 0;
    std::ifstream stream(picture, std::ios::binary);
    if (!stream.is_open())
        throwIfExhausted(errno);
    std::array<char, 16> head{};
    stream.read(head.data(), head.size());
    const std::string_view bytes(head.data(), static_cast<std::size_t>(stream.gcount()));
    const auto* const found =
        std::find_if(mediaTypes.begin(), mediaTypes.end(),
                     [bytes](const MediaType& row) { return begins(bytes, row.signature); });
    return found == mediaTypes.end() ? std::string_view() : found->name;
}

std::string linkTo(const fs::path& file, const fs::path& pageFolder) {
    const fs::path relative = file.lexically_relative(pageFolder);
    if (!relative.empty())
        return addressText(bytesOf(relative));
    const std::string drive = bytesOf(file.root_name()); // only files on another drive come here
    return "file://" + ('/' + drive) + addressText(bytesOf(file).substr(drive.size()));
}

std::string embedded(const fs::path& picture, std::string_view mediaType) {
    const std::optional<std::string> bytes = readFileBytes(picture);
    if (!bytes) {
        throw ExportFailed(quoted(picture) + ": the picture cannot be read; see to its permissions, or leave "
                                             "out --embed");
    }
    return "data:" + std::string(mediaType) + ";base64," + base64(*bytes);
}

} // namespace rasterplan_tool
