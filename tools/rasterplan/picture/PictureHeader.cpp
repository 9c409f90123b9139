#include "picture/PictureHeader.h"

#include "picture/BinaryFile.h"
#include "picture/PictureDecoder.h"
#include "picture/PictureEnd.h"
#include "picture/TiffHeader.h"

#include <array>
#include <cstdlib>
#include <string_view>

namespace rasterplan_tool {
namespace {

Picture readPng(BinaryFile& file) {
    return {PictureFormat::Png, decodePixelSize(file.stream(), PictureFormat::Png), !hasPngEnd(file), {}};
}

Picture readJpeg(BinaryFile& file) {
    return {PictureFormat::Jpeg, decodePixelSize(file.stream(), PictureFormat::Jpeg), !hasJpegEnd(file), {}};
}

std::uint32_t littleEndian(std::string_view bytes) {
    std::uint32_t number = 0;
    for (std::size_t i = bytes.size(); i > 0; --i)
        number = number << 8 | static_cast<unsigned char>(bytes[i - 1]);
    return number;
}

Picture readBmp(BinaryFile& file) {
    std::array<char, 26> buffer{};
    const std::string_view header = file.read(0, buffer);
    if (header.size() < buffer.size())
        throw damagedHeader(PictureFormat::Bmp, "the file ends in it");
    const auto number = [header](std::size_t place, std::size_t size) {
        return littleEndian(header.substr(place, size));
    };
    constexpr std::uint32_t shortHeader = 12;
    const bool isShort = number(14, 4) == shortHeader;
    const std::uint32_t width = isShort ? number(18, 2) : number(18, 4);
    const std::uint32_t height = isShort ? number(20, 2) : number(22, 4);
    constexpr std::uint32_t sign = 0x80000000U; // a negative height: the rows begin above
    if (width == 0 || width >= sign || height == 0 || height == sign)
        throw damagedHeader(PictureFormat::Bmp, "it holds no size");
    return {
        PictureFormat::Bmp, {width, height < sign ? height : ~height + 1}, number(2, 4) > file.size(), {}};
}

struct Signature {
    std::string_view bytes;
    Picture (*read)(BinaryFile& file);
};

using namespace std::string_view_literals;
constexpr std::array<Signature, 7> signatures{{
    {"\x89PNG\r\n\x1a\n"sv, &readPng},
    {"\xFF\xD8\xFF"sv, &readJpeg},
    {"II\x2A\0"sv, &readTiffHeader},
    {"MM\0\x2A"sv, &readTiffHeader},
    {"II\x2B\0\x08\0\0\0"sv, &readTiffHeader},
    {"MM\0\x2B\0\x08\0\0"sv, &readTiffHeader},
    {"BM"sv, &readBmp},
}};

} // namespace

Picture readPicture(const std::filesystem::path& path) {
    BinaryFile file(path);
    std::array<char, 8> buffer{};
    const std::string_view beginning = file.read(0, buffer);
    for (const Signature& signature : signatures)
        if (beginning.starts_with(signature.bytes))
            return signature.read(file);
    throw PictureError("the file is neither PNG, JPEG, TIFF nor BMP");
}

PixelSize readPixelSize(const std::filesystem::path& file) {
    return readPicture(file).size;
}

} // namespace rasterplan_tool
