#include "picture/PictureEnd.h"

#include <array>

namespace rasterplan_tool {
namespace {

using namespace std::string_view_literals;

unsigned byteOf(char byte) {
    return static_cast<unsigned char>(byte);
}

bool endsWith(BinaryFile& file, std::string_view end) {
    std::array<char, 16> buffer{};
    return file.size() >= end.size() && file.read(file.size() - end.size(), buffer) == end;
}

// The place of the first scan, behind all segments of the header; the file's size where there is none. Bytes
// between segments are passed over, as decoders do.
std::uint64_t findFirstScan(BinaryFile& file) {
    constexpr unsigned startOfScan = 0xDA;
    std::array<char, 4> buffer{};
    for (std::uint64_t place = 2; place + buffer.size() <= file.size();) {
        const std::string_view segment = file.read(place, buffer);
        const unsigned marker = byteOf(segment[1]);
        if (byteOf(segment[0]) != 0xFF || marker == 0xFF)
            ++place;
        else if (marker == startOfScan)
            return place;
        else
            place += 2 + (byteOf(segment[2]) << 8 | byteOf(segment[3]));
    }
    return file.size();
}

bool holds(BinaryFile& file, std::uint64_t from, std::string_view mark) {
    std::array<char, 4096> buffer{};
    for (std::uint64_t place = from; place < file.size(); place += buffer.size() - mark.size() + 1)
        if (file.read(place, buffer).find(mark) != std::string_view::npos)
            return true;
    return false;
}

} // namespace

bool hasPngEnd(BinaryFile& file) {
    if (endsWith(file, "\0\0\0\0IEND\xAE\x42\x60\x82"sv))
        return true;
    constexpr std::uint64_t signature = 8;
    constexpr std::uint64_t aroundData = 12; // length, name and check sum of a chunk
    std::array<char, 8> buffer{};
    for (std::uint64_t place = signature; place + aroundData <= file.size();) {
        const std::string_view chunk = file.read(place, buffer);
        if (chunk.ends_with("IEND"))
            return true;
        std::uint64_t length = 0;
        for (const char byte : chunk.substr(0, 4))
            length = length << 8 | byteOf(byte);
        place += aroundData + length;
    }
    return false;
}

bool hasJpegEnd(BinaryFile& file) {
    constexpr std::string_view end = "\xFF\xD9"sv;
    return endsWith(file, end) || holds(file, findFirstScan(file), end);
}

} // namespace rasterplan_tool
