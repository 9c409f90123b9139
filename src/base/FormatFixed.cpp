#include "base/FormatFixed.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

namespace ZelkBase {
namespace {

static_assert(std::numeric_limits<double>::is_iec559, "numbers are taken apart by their bits");

// "00" to "99", one after the other.
constexpr auto digitPairs = [] {
    std::array<char, 200> pairs{};
    for (std::size_t i = 0; i < 100; ++i) {
        pairs[2 * i] = static_cast<char>('0' + i / 10);
        pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
    }
    return pairs;
}();

// Writes a number below 10^8 with leading zeros.
void writeEightDigits(std::uint32_t number, char* out) noexcept {
    const std::size_t high = number / 10'000;
    const std::size_t low = number % 10'000;
    std::memcpy(out, &digitPairs[2 * (high / 100)], 2);
    std::memcpy(out + 2, &digitPairs[2 * (high % 100)], 2);
    std::memcpy(out + 4, &digitPairs[2 * (low / 100)], 2);
    std::memcpy(out + 6, &digitPairs[2 * (low % 100)], 2);
}

// The upper half of the 128-bit product, with its lowest bit set where the lower half is not zero.
std::uint64_t multiplyHighSticky(std::uint64_t number, std::uint64_t factor) noexcept {
    constexpr std::uint64_t lowMask = 0xFFFFFFFF;
    const std::uint64_t lowLow = (number & lowMask) * (factor & lowMask);
    const std::uint64_t highLow = (number >> 32) * (factor & lowMask);
    const std::uint64_t lowHigh = (number & lowMask) * (factor >> 32);
    const std::uint64_t highHigh = (number >> 32) * (factor >> 32);
    const std::uint64_t middle = (lowLow >> 32) + (highLow & lowMask) + lowHigh;
    const std::uint64_t rest = (middle << 32) | (lowLow & lowMask);
    return (highHigh + (highLow >> 32) + (middle >> 32)) | (rest != 0 ? 1 : 0);
}

// Any value and any number of decimals, slowly.
char* formatByLibrary(double value, int precision, char* out) noexcept {
    if (std::isnan(value))
        return std::copy_n("nan", 3, out);
    // No double has more than 309 digits before and 1074 behind the point; what would follow is zeros.
    std::array<char, 1 + 309 + 1 + 1074> text;
    const int decimals = precision < 0 ? 6 : std::min(precision, 1074);
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, decimals).ptr;
    return std::copy_n(text.data(), std::min<std::ptrdiff_t>(end - text.data(), fixedTextCapacity), out);
}

} // namespace

char* formatFixed17(double value, char* out) noexcept {
    // |value| = significand / 2^shift. Zero and the subnormal numbers have no leading one; with it they still
    // round to zero.
    const auto bits = std::bit_cast<std::uint64_t>(value);
    const std::uint64_t significand = (bits & ((std::uint64_t{1} << 52) - 1)) | (std::uint64_t{1} << 52);
    const int shift = 1075 - static_cast<int>((bits >> 52) & 0x7FF);
    if (shift < -11) // from 2^64 on
        return formatByLibrary(value, 17, out);

    // |value| = integer + fraction / 2^(64 + smallness). From smallness 60 on, nothing reaches the decimals.
    std::uint64_t integer = 0;
    std::uint64_t fraction = 0;
    int smallness = 0;
    if (shift <= 0) {
        integer = significand << -shift;
    } else if (shift <= 53) {
        integer = significand >> shift;
        fraction = significand << (64 - shift);
    } else {
        fraction = significand << 11;
        smallness = std::min(shift - 53, 60);
    }

    // The decimals times 2^(2 + smallness): behind them stand at least two bits, enough to tell a half from
    // less and more. A half goes to the even neighbour. Nothing carries into the integer, because the
    // fraction ends at 1 - 2^-53 and 1 - 10^-17 / 2 lies above that.
    const std::uint64_t scaled = multiplyHighSticky(fraction, 400'000'000'000'000'000);
    const std::uint64_t half = std::uint64_t{2} << smallness;
    const std::uint64_t odd = (scaled >> (2 + smallness)) & 1;
    const std::uint64_t decimals = (scaled + half - 1 + odd) >> (2 + smallness);

    *out = '-';
    out += bits >> 63;
    out = std::to_chars(out, out + 20, integer).ptr;
    const auto upper = static_cast<std::uint32_t>(decimals / 100'000'000);
    const auto lower = static_cast<std::uint32_t>(decimals % 100'000'000);
    *out = '.';
    out[1] = static_cast<char>('0' + upper / 100'000'000);
    writeEightDigits(upper % 100'000'000, out + 2);
    writeEightDigits(lower, out + 10);
    return out + 18;
}

std::string formatFixed(double value, int precision) {
    std::array<char, fixedTextCapacity> text;
    char* const first = text.data();
    return std::string(first, precision == 17 ? formatFixed17(value, first)
                                              : formatByLibrary(value, precision, first));
}

} // namespace ZelkBase
