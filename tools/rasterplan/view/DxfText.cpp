#include "view/DxfText.h"

#include <charconv>
#include <optional>
#include <system_error>

namespace rasterplan_tool {
namespace {

constexpr std::size_t escapeLength = 7; // "\U+00FC"

bool isIn(char32_t code, char32_t first, char32_t last) {
    return code >= first && code <= last;
}

std::optional<char32_t> escapeAt(std::string_view text) {
    if (text.size() < escapeLength || !text.starts_with("\\U+"))
        return std::nullopt;
    unsigned code = 0;
    const char* const end = text.data() + escapeLength;
    const auto result = std::from_chars(end - 4, end, code, 16);
    if (result.ec != std::errc() || result.ptr != end)
        return std::nullopt;
    return code;
}

void append(std::string& text, char32_t code) {
    const auto add = [&](unsigned lead, unsigned shift) {
        text += static_cast<char>(lead | (code >> shift & (lead == 0x80U ? 0x3FU : 0x7FU)));
    };
    if (code < 0x80U) {
        add(0x00U, 0);
    } else if (code < 0x800U) {
        add(0xC0U, 6);
        add(0x80U, 0);
    } else if (code < 0x10000U) {
        add(0xE0U, 12);
        add(0x80U, 6);
        add(0x80U, 0);
    } else {
        add(0xF0U, 18);
        add(0x80U, 12);
        add(0x80U, 6);
        add(0x80U, 0);
    }
}

} // namespace

std::string textFromDxf(std::string_view value) {
    std::string text;
    while (!value.empty()) {
        std::optional<char32_t> code = escapeAt(value);
        std::size_t length = escapeLength;
        if (code && isIn(*code, 0xD800, 0xDBFF)) {
            const std::optional<char32_t> second = escapeAt(value.substr(escapeLength));
            if (second && isIn(*second, 0xDC00, 0xDFFF)) {
                code = 0x10000U + ((*code - 0xD800U) << 10U) + (*second - 0xDC00U);
                length += escapeLength;
            }
        }
        if (!code || isIn(*code, 0xD800, 0xDFFF)) { // half a character is none
            text += value.front();
            value.remove_prefix(1);
            continue;
        }
        append(text, *code);
        value.remove_prefix(length);
    }
    return text;
}

} // namespace rasterplan_tool
