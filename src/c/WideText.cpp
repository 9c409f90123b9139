#include "c/WideText.h"

#include <bit>
#include <cstddef>

namespace rasterplan {
namespace {

constexpr char32_t firstBeyond16Bits = 0x10000;
constexpr char32_t lastCodePoint = 0x10FFFF;

constexpr bool isHighSurrogate(char32_t unit) {
    return unit >> 10 == 0xD800 >> 10;
}

constexpr bool isLowSurrogate(char32_t unit) {
    return unit >> 10 == 0xDC00 >> 10;
}

void append(std::wstring& text, char32_t point) {
    if (sizeof(wchar_t) > 2 || point < firstBeyond16Bits) {
        text += static_cast<wchar_t>(point);
    } else {
        text += static_cast<wchar_t>(0xD800 + ((point - firstBeyond16Bits) >> 10));
        text += static_cast<wchar_t>(0xDC00 + ((point - firstBeyond16Bits) & 0x3FF));
    }
}

// One code point of several bytes, taken off the beginning of `utf8`.
std::optional<char32_t> takeLongPoint(std::string_view& utf8) {
    const auto lead = static_cast<unsigned char>(utf8.front());
    const auto bytes = static_cast<std::size_t>(std::countl_one(lead));
    if (bytes < 2 || bytes > 4)
        return std::nullopt;
    char32_t point = lead & (0x7FU >> bytes);
    for (const char byte : utf8.substr(1, bytes - 1)) {
        if ((static_cast<unsigned char>(byte) & 0xC0U) != 0x80)
            return std::nullopt;
        point = point << 6 | (static_cast<unsigned char>(byte) & 0x3FU);
    }
    // What is cut off is below it too.
    constexpr char32_t smallest[] = {0x80, 0x800, firstBeyond16Bits};
    if (point < smallest[bytes - 2] || point > lastCodePoint)
        return std::nullopt;
    utf8.remove_prefix(bytes);
    return point;
}

} // namespace

std::optional<std::wstring> wideText(std::string_view utf8) {
    std::wstring text;
    while (!utf8.empty())
        if (static_cast<unsigned char>(utf8.front()) < 0x80) {
            text += static_cast<wchar_t>(utf8.front());
            utf8.remove_prefix(1);
        } else if (const std::optional<char32_t> point = takeLongPoint(utf8)) {
            append(text, *point);
        } else {
            return std::nullopt;
        }
    return text;
}

std::wstring wideText(const std::uint16_t* utf16) {
    std::wstring text;
    while (const char32_t unit = *utf16++)
        if (isHighSurrogate(unit) && isLowSurrogate(*utf16))
            append(text, firstBeyond16Bits + ((unit & 0x3FF) << 10) + (*utf16++ & 0x3FFU));
        else
            append(text, unit);
    return text;
}

} // namespace rasterplan
