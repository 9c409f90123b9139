#include "tool/TestPictures.h"

#include <bit>
#include <map>

namespace rasterplan_tool {
namespace {

std::string bytesOf(std::uint64_t number, std::size_t size, bool isBigEndian) {
    std::string bytes;
    for (std::size_t i = 0; i < size; ++i)
        bytes += static_cast<char>(number >> 8 * (isBigEndian ? size - 1 - i : i));
    return bytes;
}

} // namespace

std::string tiffBytes(const TiffForm& form, std::uint32_t width, std::uint32_t height,
                      const std::vector<TiffTag>& tags, std::size_t pixels) {
    const auto text = [&](std::uint64_t number, std::size_t size) {
        return bytesOf(number, size, form.isBigEndian);
    };
    const std::size_t offset = form.isBigTiff ? 8 : 4;
    std::string file = form.isBigEndian ? "MM" : "II";
    file += form.isBigTiff ? text(43, 2) + text(8, 2) + text(0, 2) : text(42, 2);
    const std::size_t headerSize = file.size() + offset;

    std::map<std::uint16_t, TiffTag> all{{256, {256, {width}, {}}},
                                         {257, {257, {height}, {}}},
                                         {273, {273, {headerSize}, {}}},
                                         {279, {279, {pixels}, {}}}};
    for (const TiffTag& tag : tags)
        all[tag.tag] = tag;

    std::string values(pixels, '\x7F');
    std::string directory = text(all.size(), form.isBigTiff ? 8 : 2);
    for (const auto& [number, tag] : all) {
        constexpr std::uint64_t typeShort = 3;
        constexpr std::uint64_t typeLong = 4;
        constexpr std::uint64_t typeDouble = 12;
        constexpr std::uint16_t geoKeyDirectory = 34735;
        const bool isShort = number == geoKeyDirectory;
        std::string value;
        for (const std::uint64_t integer : tag.integers)
            value += text(integer, isShort ? 2 : 4);
        for (const double other : tag.numbers)
            value += text(std::bit_cast<std::uint64_t>(other), 8);
        const std::uint64_t type = !tag.numbers.empty() ? typeDouble : isShort ? typeShort : typeLong;
        directory += text(number, 2) + text(type, 2) + text(tag.integers.size() + tag.numbers.size(), offset);
        if (value.size() > offset) {
            directory += text(headerSize + values.size(), offset);
            values += value;
        } else {
            directory += value + std::string(offset - value.size(), '\0');
        }
    }
    file += text(headerSize + values.size(), offset);
    return file + values + directory + text(0, offset);
}

std::vector<TiffTag> geoTags(double x, double y, double pixel) {
    return {{33550, {}, {pixel, pixel, 0}}, {33922, {}, {0, 0, 0, x, y, 0}}};
}

TiffTag geoKeys(const std::vector<std::pair<std::uint64_t, std::uint64_t>>& keys) {
    TiffTag tag{34735, {1, 1, 0, keys.size()}, {}};
    for (const auto& [key, value] : keys)
        tag.integers.insert(tag.integers.end(), {key, 0, 1, value});
    return tag;
}

std::string bmpBytes(std::int32_t width, std::int32_t height, bool isShort) {
    const std::size_t header = isShort ? 12 : 40;
    const std::size_t side = isShort ? 2 : 4;
    std::string bytes = "BM" + bytesOf(14 + header, 4, false) + std::string(8, '\0') +
                        bytesOf(header, 4, false) + bytesOf(static_cast<std::uint32_t>(width), side, false) +
                        bytesOf(static_cast<std::uint32_t>(height), side, false);
    bytes.resize(14 + header, '\0');
    return bytes;
}

} // namespace rasterplan_tool
