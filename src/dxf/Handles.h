#pragma once

#include "template/Pair.h"

#include <cstdint>

namespace rasterplan {

/// Hands out handles, each one above the last.
class HandleCounter {
public:
    /// `last` counts as handed out.
    constexpr explicit HandleCounter(std::uint32_t last) noexcept
        : m_last(last) {}

    constexpr Handle nextHandle() noexcept { return Handle{++m_last}; }
    constexpr std::uint32_t last() const noexcept { return m_last; }

private:
    std::uint32_t m_last;
};

/// The handles of the three records of an image.
struct ImageHandles {
    Handle entity;
    Handle definition;
    Handle reactor;
};

} // namespace rasterplan
