#include "base/ParseNumber.h"

#include "base/FormatFixed.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <string>
#include <system_error>

namespace ZelkBase {
namespace {

constexpr std::string_view whiteSpace = " \t\n\v\f\r";
constexpr std::string_view hexDigits = "0123456789abcdefABCDEF";

bool startsWithOneOf(std::string_view text, std::string_view characters) {
    return !text.empty() && characters.find(text.front()) != std::string_view::npos;
}

// Whether `text` is "0x" and at least one digit, before or behind a point. Without a digit the "0" alone
// counts.
bool startsHexadecimal(std::string_view text) {
    if (!text.starts_with("0x") && !text.starts_with("0X"))
        return false;
    text.remove_prefix(text.substr(2).starts_with('.') ? 3 : 2);
    return startsWithOneOf(text, hexDigits);
}

double parse(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(whiteSpace), text.size()));
    const bool negative = text.starts_with('-');
    if (startsWithOneOf(text, "+-"))
        text.remove_prefix(1);
    if (text.starts_with('-')) // a second sign, which std::from_chars would take
        throw std::invalid_argument("invalid stod argument");
    const bool hexadecimal = startsHexadecimal(text);
    if (hexadecimal)
        text.remove_prefix(2);

    double magnitude = 0.0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), magnitude,
                                        hexadecimal ? std::chars_format::hex : std::chars_format::general);
    if (result.ec == std::errc::invalid_argument)
        throw std::invalid_argument("invalid stod argument");
    if (result.ec == std::errc::result_out_of_range || std::fpclassify(magnitude) == FP_SUBNORMAL)
        throw std::out_of_range("stod argument out of range");
    return negative ? -magnitude : magnitude;
}

} // namespace

double parseNumber(std::wstring_view text) {
    std::string narrow;
    narrow.reserve(text.size());
    for (const wchar_t character : text) {
        if (static_cast<char32_t>(character) > 0x7F) // no part of a number
            break;
        narrow.push_back(static_cast<char>(character));
    }
    return parse(narrow);
}

double printedValue(double value) {
    // From 1/16 on doubles lie more than 10^-17 apart, so that 17 decimals name each of them; up to 10^80 no
    // digit that counts is cut off.
    const double magnitude = std::abs(value);
    if ((magnitude >= 0.0625 && magnitude <= 1e80) || magnitude == 0.0)
        return value;
    std::array<char, fixedTextCapacity> text;
    return parse({text.data(), formatFixed17(value, text.data())});
}

} // namespace ZelkBase
