#pragma once

#include <cstddef>
#include <string>

namespace ZelkBase {

/// The most characters that the text of a number has; of a longer one the first so many are kept.
constexpr std::size_t fixedTextCapacity = 99;

/// Writes `value` with 17 decimals to `out`, which has room for fixedTextCapacity characters, and returns the
/// end of the text. The text is that of printf's "%.17f" in the "C" locale, exactly, cut off behind 99
/// characters; "inf", "-inf", and "nan" for every NaN, because the sign of a NaN differs from compiler to
/// compiler.
char* formatFixed17(double value, char* out) noexcept;

/// The same text with `precision` decimals: 0 leaves the point away, a negative one counts as 6. Throws
/// std::bad_alloc.
std::string formatFixed(double value, int precision);

} // namespace ZelkBase
