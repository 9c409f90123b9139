#include "support/WideText.h"

#include <bit>

namespace rasterplan::test {

std::wstring wideTextOf(std::string_view utf8) {
    std::wstring text;
    for (std::size_t i = 0; i < utf8.size();) {
        const auto lead = static_cast<unsigned char>(utf8[i++]);
        const int bytes = lead < 0x80 ? 1 : std::countl_one(lead);
        unsigned long point = bytes == 1 ? lead : lead & (0x7Fu >> bytes);
        for (int k = 1; k < bytes && i < utf8.size(); ++k)
            point = point << 6 | (static_cast<unsigned char>(utf8[i++]) & 0x3Fu);
        if (sizeof(wchar_t) == 2 && point > 0xFFFF) {
            text += static_cast<wchar_t>(0xD800 + ((point - 0x10000) >> 10));
            text += static_cast<wchar_t>(0xDC00 + ((point - 0x10000) & 0x3FF));
        } else {
            text += static_cast<wchar_t>(point);
        }
    }
    return text;
}

} // namespace rasterplan::test
