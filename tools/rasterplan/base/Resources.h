#pragma once

#include <new>
#include <system_error>

namespace rasterplan_tool {

/// While one lives, it notes whenever `new` fails. Streams swallow std::bad_alloc and go on with half of a
/// text, so an exception alone does not tell. At most one at a time.
class MemoryWatch {
public:
    MemoryWatch() noexcept;
    ~MemoryWatch();
    MemoryWatch(const MemoryWatch&) = delete;
    MemoryWatch& operator=(const MemoryWatch&) = delete;

    /// Whether memory has run out.
    bool ranOut() const noexcept;

    /// Throws std::bad_alloc if memory has run out.
    void require() const;

private:
    std::new_handler m_before;
};

/// Throws where a call of the system failed because the system could give no more: std::bad_alloc for want of
/// memory, ExportFailed where too many files are open. Returns for every other error, and for none.
void throwIfExhausted(const std::error_code& error);

/// As throwIfExhausted, with what errno was right after the call.
void throwIfExhausted(int systemError);

} // namespace rasterplan_tool
