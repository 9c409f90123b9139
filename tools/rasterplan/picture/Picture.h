#pragma once

#include "picture/GeoReference.h"

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace rasterplan_tool {

/// The picture formats whose headers are read.
enum class PictureFormat { Png, Jpeg, Tiff, Bmp };

/// The name of a format: "PNG".
std::string_view formatName(PictureFormat format);

/// Size of a picture in pixels, as its file says.
struct PixelSize {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
};

/// What a picture's file says of itself, without its pixels.
struct Picture {
    PictureFormat format = PictureFormat::Png;
    PixelSize size;                  ///< Both at least 1.
    bool isCutShort = false;         ///< The file ends before the picture does.
    std::optional<GeoReference> geo; ///< Of a GeoTIFF.
};

/// A picture that cannot be read; the text says why, in words for the user.
class PictureError : public std::runtime_error {
public:
    explicit PictureError(const std::string& text, const std::string& advice = {})
        : std::runtime_error(text)
        , m_advice(advice) {}

    /// What the user can do about it; an empty text where nothing would help.
    const char* advice() const noexcept { return m_advice.what(); }

private:
    std::runtime_error m_advice; // an error is copied without memory, and so must be what it holds
};

/// The header of a file with the format's signature makes no sense; `detail` says what is wrong with it.
PictureError damagedHeader(PictureFormat format, std::string_view detail = {});

} // namespace rasterplan_tool
