#include "FailingAllocations.h"

#include <cstdlib>
#include <new>

// Every allocation of the program comes here, except for types of an extended alignment: the library has
// none.

namespace {

// Plain globals: they are used before and after every object with a constructor lives.
long living = 0;
long untilFailure = 0; // 0: none will fail
bool failed = false;
void (*throwFailure)() = nullptr;

bool mustFail() noexcept {
    if (untilFailure == 0 || --untilFailure > 0)
        return false;
    failed = true;
    return true;
}

void* counted(void* memory) noexcept {
    if (memory)
        ++living;
    return memory;
}

void* allocate(std::size_t size) noexcept {
    return mustFail() ? nullptr : counted(std::malloc(size ? size : 1));
}

void release(void* memory) noexcept {
    if (memory)
        --living;
    std::free(memory);
}

void* orThrow(void* memory) {
    if (!memory && throwFailure)
        throwFailure();
    if (!memory)
        throw std::bad_alloc();
    return memory;
}

} // namespace

namespace rasterplan::test {

FailingAllocation::FailingAllocation(long number, void (*failure)()) noexcept {
    failed = false;
    throwFailure = failure;
    untilFailure = number;
}

FailingAllocation::~FailingAllocation() {
    untilFailure = 0;
    throwFailure = nullptr;
}

bool FailingAllocation::hasFailed() const noexcept {
    return failed;
}

long livingAllocations() noexcept {
    return living;
}

} // namespace rasterplan::test

// clang-format off
void* operator new(std::size_t size) { return orThrow(allocate(size)); }
void* operator new[](std::size_t size) { return orThrow(allocate(size)); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return allocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return allocate(size); }

void operator delete(void* memory) noexcept { release(memory); }
void operator delete[](void* memory) noexcept { release(memory); }
void operator delete(void* memory, std::size_t) noexcept { release(memory); }
void operator delete[](void* memory, std::size_t) noexcept { release(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { release(memory); }
void operator delete[](void* memory, const std::nothrow_t&) noexcept { release(memory); }
// clang-format on
