// Each eight bytes are a number. Its text is judged by exact arithmetic in whole numbers of any length, and
// what the library reads back from the text by the C library.

#include "base/FormatFixed.h"
#include "base/ParseNumber.h"
#include "fuzz/Fuzzing.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <string>
#include <vector>

namespace {

using rasterplan::fuzz::demand;
using rasterplan::fuzz::Input;

// A whole number that is not negative.
class Whole {
public:
    explicit Whole(std::uint64_t value) {
        for (; value > 0; value /= base)
            m_limbs.push_back(value % base);
    }

    void multiply(std::uint64_t factor) { // below 2^32
        std::uint64_t carry = 0;
        for (std::uint64_t& limb : m_limbs) {
            carry += limb * factor;
            limb = carry % base;
            carry /= base;
        }
        for (; carry > 0; carry /= base)
            m_limbs.push_back(carry % base);
    }

    std::string digits() const {
        std::string text;
        for (std::uint64_t limb : m_limbs)
            for (int i = 0; i < 9; ++i, limb /= 10)
                text += static_cast<char>('0' + limb % 10);
        std::reverse(text.begin(), text.end());
        text.erase(0, text.find_first_not_of('0'));
        return text;
    }

private:
    static constexpr std::uint64_t base = 1'000'000'000;
    std::vector<std::uint64_t> m_limbs; // the lowest first
};

// All digits of a number that is finite: `count` of them stand behind the point.
struct Digits {
    std::string text;
    std::size_t count;
};

// Multiplies by `factor` so many times; none when the count is negative.
void multiply(Whole& number, std::uint64_t factor, int count) {
    for (; count >= 12; count -= 12) {
        const std::uint64_t cube = factor * factor * factor;
        number.multiply(cube * cube * cube * cube);
    }
    for (; count > 0; --count)
        number.multiply(factor);
}

Digits exactDigits(double magnitude) {
    const auto bits = std::bit_cast<std::uint64_t>(magnitude);
    const int biased = static_cast<int>(bits >> 52);
    const std::uint64_t fraction = bits & ((std::uint64_t{1} << 52) - 1);
    Whole number(biased == 0 ? fraction : fraction | (std::uint64_t{1} << 52));
    const int exponent = (biased == 0 ? 1 : biased) - 1075;
    multiply(number, 2, exponent);
    multiply(number, 5, -exponent); // a half is five tenths
    return {number.digits(), static_cast<std::size_t>(exponent < 0 ? -exponent : 0)};
}

// Adds one to a number in decimal digits.
void increment(std::string& digits) {
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
        if (*digit != '9') {
            ++*digit;
            return;
        }
        *digit = '0';
    }
    digits.insert(digits.begin(), '1');
}

// 17 decimals, a half rounded to the even neighbour, and only the first 99 characters of them.
std::string expectedText(double value) {
    if (std::isnan(value))
        return "nan";
    const std::string sign = std::signbit(value) ? "-" : "";
    if (std::isinf(value))
        return sign + "inf";
    constexpr std::size_t decimals = 17;
    auto [digits, count] = exactDigits(std::abs(value));
    if (count < decimals) {
        digits.append(decimals - count, '0');
        count = decimals;
    }
    if (digits.size() <= count)
        digits.insert(0, count + 1 - digits.size(), '0');
    const std::string rest = digits.substr(digits.size() - (count - decimals));
    digits.resize(digits.size() - rest.size());
    const std::string half = rest.empty() ? "" : '5' + std::string(rest.size() - 1, '0');
    const bool odd = (digits.back() - '0') % 2 == 1;
    if (rest > half || (!rest.empty() && rest == half && odd))
        increment(digits);
    digits.insert(digits.size() - decimals, ".");
    return (sign + digits).substr(0, ZelkBase::fixedTextCapacity);
}

void judge(double value) {
    std::array<char, ZelkBase::fixedTextCapacity> room;
    const char* const end = ZelkBase::formatFixed17(value, room.data());
    const std::string text(room.data(), static_cast<std::size_t>(end - room.data()));
    const std::string expected = expectedText(value);
    demand(text == expected, text + " instead of\n" + expected);
    demand(ZelkBase::formatFixed(value, 17) == text, "the slower call has another text than " + text);

    const double read = ZelkBase::printedValue(value);
    const double byLibrary = std::strtod(text.c_str(), nullptr);
    demand(std::isnan(byLibrary)
               ? std::isnan(read)
               : std::bit_cast<std::uint64_t>(read) == std::bit_cast<std::uint64_t>(byLibrary),
           "read back otherwise: " + text);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    for (Input input(data, size); !input.empty();)
        judge(input.next<double>());
    return 0;
}
