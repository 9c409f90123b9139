#include "view/Base64.h"

#include <cstdint>

namespace rasterplan_tool {

std::string base64(std::string_view bytes) {
    constexpr std::string_view digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    constexpr std::size_t group = 3;
    std::string text;
    text.reserve((bytes.size() + group - 1) / group * (group + 1));
    for (; !bytes.empty(); bytes.remove_prefix(std::min(group, bytes.size()))) {
        std::uint32_t bits = 0;
        for (std::size_t i = 0; i < group; ++i)
            bits = bits << 8U | (i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0U);
        for (std::size_t i = 0; i <= group; ++i)
            text += i <= bytes.size() ? digits[bits >> (18U - 6U * i) & 0x3FU] : '=';
    }
    return text;
}

} // namespace rasterplan_tool
