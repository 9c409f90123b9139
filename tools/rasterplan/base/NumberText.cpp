#include "base/NumberText.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace rasterplan_tool {

std::optional<double> parseNumber(std::string_view text) {
    double number = 0.0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || stop != end || !std::isfinite(number))
        return std::nullopt;
    return number;
}

std::string shortestText(double number) {
    std::array<char, 32> text;
    const auto result = std::to_chars(text.data(), text.data() + text.size(), number);
    return {text.data(), result.ptr};
}

std::string roundedText(double number, int digits) {
    std::array<char, 64> text;
    const auto result =
        std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::general, digits);
    return {text.data(), result.ptr};
}

std::string fixedText(double number, int digits) {
    constexpr std::size_t longest = std::numeric_limits<double>::max_exponent10 + 64;
    std::array<char, longest> text;
    const auto result =
        std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed, digits);
    const std::string_view whole(text.data(), static_cast<std::size_t>(result.ptr - text.data()));
    const bool isZero = whole.find_first_not_of("-0.") == std::string_view::npos;
    return std::string(isZero && whole.front() == '-' ? whole.substr(1) : whole);
}

} // namespace rasterplan_tool
