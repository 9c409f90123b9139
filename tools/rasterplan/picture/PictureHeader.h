#pragma once

#include <cstdint>
#include <filesystem>
#include <stdexcept>

namespace rasterplan_tool {

/// Size of a picture in pixels, as its file says.
struct PixelSize {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
};

/// A picture whose header cannot be read; the text says why, in words for the user.
class PictureError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Reads the header of a PNG or JPEG file; the format is told by the content, not by the name.
/// Throws PictureError when there is no such file, when it is of another format and when its header is
/// damaged.
PixelSize readPixelSize(const std::filesystem::path& file);

} // namespace rasterplan_tool
