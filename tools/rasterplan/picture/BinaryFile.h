#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <span>
#include <string_view>

namespace rasterplan_tool {

/// A file that is open for reading bytes at any place.
class BinaryFile {
public:
    /// Throws PictureError when there is no such file, when it is no ordinary one, and when it cannot be
    /// opened.
    explicit BinaryFile(const std::filesystem::path& file);
    BinaryFile(const BinaryFile&) = delete;
    BinaryFile& operator=(const BinaryFile&) = delete;

    /// In bytes.
    std::uint64_t size() const noexcept { return m_size; }

    /// Reads from `offset` on into `bytes`; returns what was read, which is less only at the file's end.
    /// Throws PictureError when the system cannot read.
    std::string_view read(std::uint64_t offset, std::span<char> bytes);

    /// For decoders that read by themselves, from wherever they go.
    std::FILE* stream() noexcept { return m_stream.get(); }

private:
    struct Close {
        void operator()(std::FILE* stream) const { std::fclose(stream); }
    };

    std::array<char, 4096> m_buffer{}; // the stream's, whose own would take memory unseen
    std::unique_ptr<std::FILE, Close> m_stream;
    std::uint64_t m_size = 0;
};

} // namespace rasterplan_tool
