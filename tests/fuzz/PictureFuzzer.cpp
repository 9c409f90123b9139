// The input is a picture's file. Its header is read or refused in words, the size of a PNG is what stands in
// its header, and no place on a map is made of numbers that are none.

#include "fuzz/Fuzzing.h"
#include "fuzz/MemoryFile.h"

#include "picture/PictureHeader.h"

#include <cmath>
#include <string>

namespace {

using namespace rasterplan_tool;
using rasterplan::fuzz::demand;
using rasterplan::fuzz::MemoryFile;

std::uint32_t bigEndian(const std::uint8_t* bytes) {
    return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 | std::uint32_t{bytes[2]} << 8 |
           bytes[3];
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const MemoryFile file(data, size);
    try {
        const Picture picture = readPicture(file.path());
        const PixelSize pixels = picture.size;
        demand(pixels.width > 0 && pixels.height > 0, "a picture without pixels");
        demand(picture.format == PictureFormat::Tiff || !picture.geo, "only a TIFF lies on a map");
        if (picture.geo && picture.geo->problem.empty()) {
            const MapTransform& map = picture.geo->transform;
            for (const double term : {map.xPerColumn, map.yPerColumn, map.xPerRow, map.yPerRow})
                demand(std::isfinite(term), "a place that is no number");
        }
        if (picture.format == PictureFormat::Png) { // signature, length and name of the header come before
            demand(size >= 24 && bigEndian(data + 16) == pixels.width &&
                       bigEndian(data + 20) == pixels.height,
                   "another size than the header's");
        }
    } catch (const PictureError& error) {
        demand(*error.what() != '\0', "a failure without words");
    }
    return 0;
}
