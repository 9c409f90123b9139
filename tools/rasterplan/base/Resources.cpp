#include "base/Resources.h"

#include "base/Failure.h"

#include <atomic>

namespace rasterplan_tool {
namespace {

std::atomic<bool> hasRunOut = false; // a new handler takes no argument, and any thread may call it

[[noreturn]] void noteAndFail() {
    hasRunOut = true;
    throw std::bad_alloc();
}

} // namespace

MemoryWatch::MemoryWatch() noexcept
    : m_before(std::set_new_handler(noteAndFail)) {
    hasRunOut = false;
}

MemoryWatch::~MemoryWatch() {
    std::set_new_handler(m_before);
}

bool MemoryWatch::ranOut() const noexcept {
    return hasRunOut;
}

void MemoryWatch::require() const {
    if (hasRunOut)
        throw std::bad_alloc();
}

void throwIfExhausted(const std::error_code& error) {
    if (error == std::errc::not_enough_memory)
        throw std::bad_alloc();
    if (error == std::errc::too_many_files_open || error == std::errc::too_many_files_open_in_system) {
        throw ExportFailed(
            "no further file can be opened, because too many are open; close other programs or raise the "
            "limit (ulimit -n)");
    }
}

void throwIfExhausted(int systemError) {
    throwIfExhausted(std::error_code(systemError, std::generic_category()));
}

} // namespace rasterplan_tool
