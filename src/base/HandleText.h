#pragma once

#include <charconv>
#include <cstddef>
#include <cstdint>

namespace ZelkBase {

/// The most characters that formatHandle writes.
constexpr std::size_t handleTextCapacity = 8;

/// The most characters that formatInteger writes.
constexpr std::size_t integerTextCapacity = 11;

/// Writes `handle` in upper-case hexadecimal digits without leading zeros to `out`, which has room for
/// handleTextCapacity characters, and returns the end of the text. Zero is "0".
inline char* formatHandle(std::uint32_t handle, char* out) noexcept {
    int shift = 28;
    while (shift > 0 && handle >> shift == 0)
        shift -= 4;
    for (; shift >= 0; shift -= 4)
        *out++ = "0123456789ABCDEF"[(handle >> shift) & 0xF];
    return out;
}

/// Writes `number` in decimal digits, "-" before a negative one, to `out`, which has room for
/// integerTextCapacity characters, and returns the end of the text.
inline char* formatInteger(std::int32_t number, char* out) noexcept {
    return std::to_chars(out, out + integerTextCapacity, number).ptr;
}

} // namespace ZelkBase
