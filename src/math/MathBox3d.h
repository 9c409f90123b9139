#pragma once

#include "math/MathPoint3d.h"

namespace rasterplan {

/// The smallest axis-aligned box around points; empty at first.
class MathBox3d {
public:
    /// Bound of the empty box: its minimum in each component, its maximum with the sign changed.
    static constexpr double emptyBound = 4294967295.0;

    const MathPoint3d& min() const noexcept { return m_min; }
    const MathPoint3d& max() const noexcept { return m_max; }

    /// Whether the maximum lies below the minimum in some component.
    bool isEmpty() const noexcept { return m_max.x < m_min.x || m_max.y < m_min.y || m_max.z < m_min.z; }

    /// Widens the box to hold `point`; true when that changed it. A NaN component changes nothing.
    bool extend(const MathPoint3d& point) noexcept {
        const MathBox3d before = *this;
        m_min = {lower(m_min.x, point.x), lower(m_min.y, point.y), lower(m_min.z, point.z)};
        m_max = {upper(m_max.x, point.x), upper(m_max.y, point.y), upper(m_max.z, point.z)};
        return !(m_min == before.m_min && m_max == before.m_max);
    }

    /// (max - min) * 0.5 + min; the zero point for the empty box.
    MathPoint3d center() const noexcept { return m_min + (m_max - m_min) * 0.5; }

private:
    static double lower(double bound, double value) noexcept { return value < bound ? value : bound; }
    static double upper(double bound, double value) noexcept { return value > bound ? value : bound; }

    MathPoint3d m_min{emptyBound, emptyBound, emptyBound};
    MathPoint3d m_max{-emptyBound, -emptyBound, -emptyBound};
};

} // namespace rasterplan
