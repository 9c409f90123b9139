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

std::string rangesText(const std::vector<std::size_t>& numbers) {
    std::string text;
    for (std::size_t first = 0; first < numbers.size();) {
        std::size_t last = first;
        while (last + 1 < numbers.size() && numbers[last + 1] == numbers[last] + 1)
            ++last;
        text += (text.empty() ? "" : ", ") + std::to_string(numbers[first]);
        if (last > first)
            text += (last > first + 1 ? "-" : ", ") + std::to_string(numbers[last]);
        first = last + 1;
    }
    return text;
}

} // namespace rasterplan_tool
