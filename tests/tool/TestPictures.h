#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace rasterplan_tool {

/// The form of a TIFF file.
struct TiffForm {
    bool isBigEndian = false;
    bool isBigTiff = false;
};

/// One tag of a TIFF file, with whole numbers or with others.
struct TiffTag {
    std::uint16_t tag = 0;
    std::vector<std::uint64_t> integers;
    std::vector<double> numbers;
};

/// A TIFF file of that size with one strip of `pixels` bytes, and these tags besides.
std::string tiffBytes(const TiffForm& form, std::uint32_t width, std::uint32_t height,
                      const std::vector<TiffTag>& tags = {}, std::size_t pixels = 4);

/// The tags of a GeoTIFF whose left-top corner lies at x, y.
std::vector<TiffTag> geoTags(double x, double y, double pixel);

/// The tag with the keys of a GeoTIFF: pairs of key and value.
TiffTag geoKeys(const std::vector<std::pair<std::uint64_t, std::uint64_t>>& keys);

/// A BMP file of that size without its pixels; with the header of 12 bytes if it is short. A negative height
/// begins with the uppermost row.
std::string bmpBytes(std::int32_t width, std::int32_t height, bool isShort = false);

} // namespace rasterplan_tool
