#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace rasterplan_tool {

/// The largest magnitude of a coordinate. Far beyond any site in any unit, and far below where a number no
/// longer fits a line of the drawing.
inline constexpr double largestCoordinate = 1e18;

/// The number that a text is as a whole ("-1.5", "4e3"); nothing for any other text, NaN and infinity
/// included. Does not depend on the locale.
std::optional<double> parseNumber(std::string_view text);

/// The shortest text that reads back as the same number. Does not depend on the locale.
std::string shortestText(double number);

/// The number with at most `digits` digits in all. Does not depend on the locale.
std::string roundedText(double number, int digits);

/// The number with `digits` digits after the point; what rounds to zero has no sign. Does not depend on the
/// locale.
std::string fixedText(double number, int digits);

/// Numbers in ascending order, those that follow each other as a range: "1-3, 7".
std::string rangesText(const std::vector<std::size_t>& numbers);

} // namespace rasterplan_tool
