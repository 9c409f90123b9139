#pragma once

#include <string_view>

namespace ZelkBase {

/// The number at the start of `text`, read as std::stod does, but with a point whatever the locale: white
/// space is skipped, the longest prefix that is a number counts (decimal, hexadecimal behind "0x", "inf",
/// "infinity", "nan", each with a sign or without), and what follows is ignored. Throws std::invalid_argument
/// where no number begins, and std::out_of_range for a number beyond the largest double or so small that it
/// is no normal double.
double parseNumber(std::wstring_view text);

/// What a reader makes of `value` once it is written with 17 decimals: parseNumber of the text of
/// formatFixed17.
double printedValue(double value);

} // namespace ZelkBase
