// Compares formatFixed17 with std::to_chars over all exponents, ties, and the neighbours of ties.
// Usage: FormatFixedProof [count, 10000000 if not given] [seed, 1 if not given]

#include "base/FormatFixed.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>
#include <string_view>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

class Proof {
public:
    explicit Proof(std::uint64_t seed)
        : m_random(seed) {}

    // Compares `value` and its negative; ends the program at a difference.
    void compare(double value) {
        compareOne(value);
        compareOne(-value);
    }

    void compareWithNeighbours(double value) {
        compare(std::nextafter(value, 0.0));
        compare(value);
        compare(std::nextafter(value, infinity));
    }

    // Every power of two and of ten, and every place at which the text goes up to the next one: that is at
    // odd multiples of half a unit of the 17th decimal, which only those of 2^-18 hit exactly.
    void compareEdges() {
        for (int exponent = -1074; exponent < 1024; ++exponent)
            compareWithNeighbours(std::ldexp(1.0, exponent));
        for (int exponent = -323; exponent <= 308; ++exponent)
            compareWithNeighbours(std::strtod(("1e" + std::to_string(exponent)).c_str(), nullptr));
        for (std::uint64_t odd = 1; odd < (std::uint64_t{1} << 18); odd += 2)
            compareWithNeighbours(static_cast<double>(odd) * 0x1p-18);
        for (std::uint64_t units = 0; units < 100'000; ++units)
            compareWithNeighbours((static_cast<double>(units) + 0.5) * 1e-17);
        compare(0.0);
        compare(infinity);
    }

    void compareRandom(std::uint64_t round) {
        const std::uint64_t bits = m_random();
        const double unit = static_cast<double>(bits >> 11) * 0x1p-53;
        switch (round % 6) {
        case 0: // any bit pattern
            compareOne(std::bit_cast<double>(bits));
            break;
        case 1: // all exponents that have an integer or decimals below 2^64
            compareOne(std::ldexp(unit + 1.0, static_cast<int>(m_random() % 128) - 63));
            break;
        case 2: // survey coordinates
            compareOne(unit * 1e7 - 5e6);
            break;
        case 3: // components of unit vectors
            compareOne(unit * 2.0 - 1.0);
            break;
        case 4: // ties: an odd multiple of 2^-18 that still fits the significand
            compareWithNeighbours(static_cast<double>((bits >> (11 + m_random() % 52)) | 1) * 0x1p-18);
            break;
        default: // few decimals, as people write them
            compareOne(static_cast<double>(bits % 1'000'000'000) /
                       std::pow(10.0, static_cast<double>(m_random() % 10)));
        }
    }

    std::uint64_t count() const { return m_count; }

private:
    void compareOne(double value) {
        if (std::isnan(value)) // has a text of its own
            return;
        ++m_count;
        const std::string_view own(m_own.data(),
                                   length(m_own.data(), ZelkBase::formatFixed17(value, m_own.data())));
        const auto result = std::to_chars(m_library.data(), m_library.data() + m_library.size(), value,
                                          std::chars_format::fixed, 17);
        const std::string_view library(m_library.data(), length(m_library.data(), result.ptr));
        if (own == library.substr(0, ZelkBase::fixedTextCapacity))
            return;
        std::printf("difference at %a:\n%.*s instead of\n%.*s\n", value, static_cast<int>(own.size()),
                    own.data(), static_cast<int>(library.size()), library.data());
        std::exit(1);
    }

    static std::size_t length(const char* first, const char* last) {
        return static_cast<std::size_t>(last - first);
    }

    std::mt19937_64 m_random;
    std::uint64_t m_count = 0;
    std::array<char, ZelkBase::fixedTextCapacity> m_own{};
    std::array<char, 400> m_library{};
};

} // namespace

int main(int argc, char** argv) {
    const std::uint64_t count = argc > 1 ? std::strtoull(argv[1], nullptr, 10) : 10'000'000;
    const std::uint64_t seed = argc > 2 ? std::strtoull(argv[2], nullptr, 10) : 1;
    Proof proof(seed);
    proof.compareEdges();
    for (std::uint64_t round = 0; proof.count() < count; ++round)
        proof.compareRandom(round);
    std::printf("%llu numbers, seed %llu: no difference\n", static_cast<unsigned long long>(proof.count()),
                static_cast<unsigned long long>(seed));
    return 0;
}
