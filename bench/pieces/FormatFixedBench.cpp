// What one number costs: our formatter, std::to_chars and snprintf, on the kinds of numbers that drawings
// hold.

#include "base/FormatFixed.h"

#include <benchmark/benchmark.h>

#include <array>
#include <charconv>
#include <cstdio>
#include <random>
#include <vector>

namespace {

using Numbers = std::vector<double>;

constexpr std::size_t numberCount = 4096; // enough that no branch predictor learns them

Numbers uniform(double low, double high) {
    std::mt19937_64 random(1);
    std::uniform_real_distribution<double> distribution(low, high);
    Numbers numbers(numberCount);
    for (double& number : numbers)
        number = distribution(random);
    return numbers;
}

// Decimal steps as in pixel sizes, and counts, in turn.
Numbers plain() {
    Numbers numbers(numberCount);
    for (std::size_t i = 0; i < numberCount; ++i)
        numbers[i] = static_cast<double>(i) / (i % 2 == 0 ? 1000.0 : 1.0);
    return numbers;
}

template <typename Format>
void run(benchmark::State& state, const Numbers& numbers, Format format) {
    std::array<char, 400> text;
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(format(numbers[i++ % numberCount], text));
        benchmark::ClobberMemory();
    }
}

void byFormatFixed(benchmark::State& state, const Numbers& numbers) {
    run(state, numbers,
        [](double number, auto& text) { return ZelkBase::formatFixed17(number, text.data()); });
}

void byToChars(benchmark::State& state, const Numbers& numbers) {
    run(state, numbers, [](double number, auto& text) {
        return std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed, 17)
            .ptr;
    });
}

void byPrintf(benchmark::State& state, const Numbers& numbers) {
    run(state, numbers,
        [](double number, auto& text) { return std::snprintf(text.data(), text.size(), "%.17f", number); });
}

#define COMPARE(name, numbers)                                                                               \
    BENCHMARK_CAPTURE(byFormatFixed, name, numbers);                                                         \
    BENCHMARK_CAPTURE(byToChars, name, numbers);                                                             \
    BENCHMARK_CAPTURE(byPrintf, name, numbers)

COMPARE(surveyCoordinates, uniform(-6e6, 6e6));
COMPARE(unitVectors, uniform(-1.0, 1.0));
COMPARE(smallNumbers, uniform(-1e-4, 1e-4));
COMPARE(plainNumbers, plain());

} // namespace
