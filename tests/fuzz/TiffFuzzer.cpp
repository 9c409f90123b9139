// The input is a TIFF file behind its signature, which its first byte chooses. Its directory is read or
// refused in words; a place on a map is made of numbers; and bytes behind a whole picture leave it as it is.

#include "fuzz/Fuzzing.h"
#include "fuzz/MemoryFile.h"

#include "picture/PictureHeader.h"

#include <array>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>

namespace {

using namespace rasterplan_tool;
using namespace std::string_view_literals;
using rasterplan::fuzz::demand;
using rasterplan::fuzz::MemoryFile;

constexpr std::array<std::string_view, 4> signatures{"II\x2A\0"sv, "MM\0\x2A"sv, "II\x2B\0\x08\0\0\0"sv,
                                                     "MM\0\x2B\0\x08\0\0"sv};

std::optional<Picture> read(const std::string& bytes) {
    const MemoryFile file(bytes.data(), bytes.size());
    try {
        return readPicture(file.path());
    } catch (const PictureError& error) {
        demand(std::string_view(error.what()).starts_with("the TIFF header is damaged ("), error.what());
    }
    return std::nullopt;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    std::string bytes(signatures[data[0] % signatures.size()]);
    bytes.append(reinterpret_cast<const char*>(data) + 1, size - 1);
    const std::optional<Picture> picture = read(bytes);
    if (!picture)
        return 0;
    demand(picture->format == PictureFormat::Tiff, "another format");
    demand(picture->size.width > 0 && picture->size.height > 0, "a picture without pixels");
    if (picture->geo && picture->geo->problem.empty()) {
        const MapTransform& map = picture->geo->transform;
        for (const double term : {map.xPerColumn, map.yPerColumn, map.xPerRow, map.yPerRow})
            demand(std::isfinite(term), "a place that is no number");
    }
    if (!picture->isCutShort) {
        const std::optional<Picture> longer = read(bytes + std::string(100, '\x7F'));
        demand(longer && !longer->isCutShort, "cut short by more bytes");
        demand(longer->size.width == picture->size.width && longer->size.height == picture->size.height,
               "another size with more bytes");
    }
    return 0;
}
