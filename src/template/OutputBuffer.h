#pragma once

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string_view>

namespace rasterplan {

/// What ends every line of a drawing.
inline constexpr std::string_view lineEnd = "\r\n";

/// Bytes on their way into a file, written in blocks. A write that fails is not reported.
class OutputBuffer {
public:
    /// The most bytes that can be reserved at once.
    static constexpr std::size_t blockSize = 65536;

    /// Writes to `file`, which must outlive this object. Throws std::bad_alloc.
    explicit OutputBuffer(std::FILE* file);

    /// Writes what is still held back.
    ~OutputBuffer();

    OutputBuffer(const OutputBuffer&) = delete;
    OutputBuffer& operator=(const OutputBuffer&) = delete;

    /// Appends at most blockSize bytes as they are.
    void append(std::string_view bytes) {
        char* const end = reserve(bytes.size());
        commit(end + bytes.copy(end, bytes.size()));
    }

    /// Appends text as UTF-8, each line feed as CR LF. Throws std::range_error for a character beyond
    /// U+10FFFF.
    void appendText(std::wstring_view text);

    /// Room for `size` bytes, at most blockSize. It is filled by the caller, who then says with commit()
    /// where the bytes end.
    char* reserve(std::size_t size) {
        if (blockSize - m_size < size)
            flush();
        return m_block.get() + m_size;
    }
    void commit(const char* end) noexcept {
        m_size = static_cast<std::size_t>(end - m_block.get());
        assert(m_size <= blockSize);
    }

    /// Bytes appended so far.
    std::uint64_t count() const noexcept { return m_flushed + m_size; }

private:
    void flush();

    std::FILE* m_file;
    std::unique_ptr<char[]> m_block;
    std::size_t m_size = 0;
    std::uint64_t m_flushed = 0;
};

} // namespace rasterplan
