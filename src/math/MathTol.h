#pragma once

#include "math/MathError.h"

namespace rasterplan {

/// Three tolerances, each 1e-10 unless given. The library itself asks for the third only.
class MathTol {
public:
    static constexpr double defaultTolerance = 1e-10;

    MathTol() noexcept = default;

    /// Throws MathError ("Toleranz zu klein") when a tolerance is negative.
    MathTol(double first, double second, double length)
        : m_first(first)
        , m_second(second)
        , m_length(length) {
        if (first < 0 || second < 0 || length < 0)
            throw MathError(L"Toleranz zu klein");
    }
    virtual ~MathTol() = default;

    MathTol(const MathTol&) = default;
    MathTol& operator=(const MathTol&) = default;

    double first() const noexcept { return m_first; }
    double second() const noexcept { return m_second; }

    /// For lengths, and for the dot and cross products of unit vectors.
    double length() const noexcept { return m_length; }

private:
    double m_first = defaultTolerance;
    double m_second = defaultTolerance;
    double m_length = defaultTolerance;
};

} // namespace rasterplan
