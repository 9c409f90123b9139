#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace rasterplan_tool {

/// The text with small letters in place of the capitals A to Z. Does not depend on the locale.
inline std::string inSmallLetters(std::string_view text) {
    std::string letters(text);
    std::transform(letters.begin(), letters.end(), letters.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return letters;
}

/// The text with capitals in place of the small letters a to z. Does not depend on the locale.
inline std::string inCapitals(std::string_view text) {
    std::string letters(text);
    std::transform(letters.begin(), letters.end(), letters.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    return letters;
}

} // namespace rasterplan_tool
