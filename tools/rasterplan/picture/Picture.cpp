#include "picture/Picture.h"

#include <array>

namespace rasterplan_tool {

std::string_view formatName(PictureFormat format) {
    static constexpr std::array<std::string_view, 4> names{"PNG", "JPEG", "TIFF", "BMP"};
    return names[static_cast<std::size_t>(format)];
}

PictureError damagedHeader(PictureFormat format, std::string_view detail) {
    std::string text = "the " + std::string(formatName(format)) + " header is damaged";
    if (!detail.empty())
        text += " (" + std::string(detail) + ')';
    return PictureError(text, "save the picture anew");
}

} // namespace rasterplan_tool
