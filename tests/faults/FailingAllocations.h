#pragma once

namespace rasterplan::test {

/// While one lives, the allocation with this number (from 1) of the current program fails, and only that one:
/// with std::bad_alloc, or with what `failure` throws.
class FailingAllocation {
public:
    explicit FailingAllocation(long number, void (*failure)() = nullptr) noexcept;
    ~FailingAllocation();
    FailingAllocation(const FailingAllocation&) = delete;
    FailingAllocation& operator=(const FailingAllocation&) = delete;

    /// Whether so many allocations have been asked for.
    bool hasFailed() const noexcept;
};

/// Allocations that have not been freed.
long livingAllocations() noexcept;

} // namespace rasterplan::test
