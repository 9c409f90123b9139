#include "reader/DxfText.h"

#include <array>
#include <charconv>

namespace rasterplan_tool {
namespace {

// The characters of the bytes 80 to 9F; all others of the code page are those of Unicode.
constexpr std::array<char32_t, 32> codePage1252 = {
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

constexpr std::string_view escape = "\\U+";
constexpr std::size_t escapeDigits = 4;

void append(std::string& text, char32_t character) {
    const auto byte = [&text](char32_t value) { text += static_cast<char>(value); };
    if (character < 0x80) {
        byte(character);
    } else if (character < 0x800) {
        byte(0xC0 | character >> 6U);
        byte(0x80 | (character & 0x3FU));
    } else {
        byte(0xE0 | character >> 12U);
        byte(0x80 | (character >> 6U & 0x3FU));
        byte(0x80 | (character & 0x3FU));
    }
}

bool isSurrogate(char32_t character) {
    return character >= 0xD800 && character <= 0xDFFF;
}

// Whether the bytes could be UTF-8, by their leading and following bytes; that is enough to tell it from a
// code page.
bool looksLikeUtf8(std::string_view text) {
    std::size_t following = 0;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        const bool follows = (byte & 0xC0U) == 0x80U;
        if (follows != (following > 0))
            return false;
        if (follows)
            --following;
        else
            following = byte >= 0xF8U ? 4 : byte >= 0xF0U ? 3 : byte >= 0xE0U ? 2 : byte >= 0xC0U ? 1 : 0;
        if (following == 4)
            return false;
    }
    return following == 0;
}

std::string utf8FromCodePage(std::string_view text) {
    std::string result;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        append(result, byte >= 0x80 && byte < 0xA0 ? codePage1252[byte - 0x80U] : byte);
    }
    return result;
}

} // namespace

std::string unicodeText(std::string_view value) {
    const std::string text = looksLikeUtf8(value) ? std::string(value) : utf8FromCodePage(value);
    std::string result;
    std::string_view rest = text;
    while (!rest.empty()) {
        unsigned character = 0;
        const std::string_view digits =
            rest.starts_with(escape) ? rest.substr(escape.size(), escapeDigits) : std::string_view();
        const char* const end = digits.data() + digits.size();
        const bool isEscape = digits.size() == escapeDigits &&
                              std::from_chars(digits.data(), end, character, 16).ptr == end &&
                              !isSurrogate(character);
        if (isEscape)
            append(result, character);
        else
            result += rest.front();
        rest.remove_prefix(isEscape ? escape.size() + escapeDigits : 1);
    }
    return result;
}

} // namespace rasterplan_tool
