#pragma once

// What the classes over the C library share. No host includes it.

#include "RasterPlanWriter/TripleDouble.h"
#include "RasterPlanWriterC.h"

#if defined(__cpp_exceptions) || defined(__EXCEPTIONS) || defined(_CPPUNWIND)
#define RASTERPLANWRITER_THROWS
#include <exception>
#include <new>
#endif

namespace rasterplan_c {

/// The three numbers of a triple, as the C library takes and gives them.
struct Numbers {
    double of[3];

    Numbers() noexcept
        : of{0.0, 0.0, 0.0} {}
    explicit Numbers(const TripleDouble& triple) noexcept
        : of{triple.x, triple.y, triple.z} {}
};

inline TripleDouble triple(const double* numbers) noexcept {
    return TripleDouble(numbers[0], numbers[1], numbers[2]);
}

#ifdef RASTERPLANWRITER_THROWS
/// What is thrown where a call of the C library says something else than the results of RasterPlanWriter.
class Failure : public std::exception {
public:
    explicit Failure(RpwResult result) noexcept
        : m_result(result) {}

    /// The result in words.
    const char* what() const noexcept override { return rpwResultText(m_result); }

private:
    RpwResult m_result;
};
#endif

/// Throws std::bad_alloc for RpwUnexpectedFailure and Failure for any other result; returns where exceptions
/// are switched off.
inline void fail(RpwResult result) {
#ifdef RASTERPLANWRITER_THROWS
    if (result == RpwUnexpectedFailure)
        throw std::bad_alloc();
    throw Failure(result);
#else
    (void)result;
#endif
}

} // namespace rasterplan_c
