#include "picture/BinaryFile.h"

#include "base/FileStream.h"
#include "base/Resources.h"
#include "picture/Picture.h"

#include <cerrno>
#include <system_error>

namespace fs = std::filesystem;

namespace rasterplan_tool {

BinaryFile::BinaryFile(const fs::path& file) {
    std::error_code error;
    const fs::file_status status = fs::status(file, error);
    if (!fs::exists(status)) {
        throwIfExhausted(error);
        throw PictureError("there is no such file", "correct the path");
    }
    if (!fs::is_regular_file(status))
        throw PictureError("this is not a file", "correct the path");
    errno = 0;
    m_stream.reset(openForReading(file));
    m_size = fs::file_size(file, error);
    if (!m_stream || error) {
        throwIfExhausted(errno);
        throw PictureError("the file cannot be opened", "check its permissions");
    }
    std::setvbuf(m_stream.get(), m_buffer.data(), _IOFBF, m_buffer.size());
}

std::string_view BinaryFile::read(std::uint64_t offset, std::span<char> bytes) {
    if (offset >= m_size)
        return {};
    errno = 0;
    const bool isThere = seekTo(m_stream.get(), offset);
    const std::size_t count = isThere ? std::fread(bytes.data(), 1, bytes.size(), m_stream.get()) : 0;
    if (!isThere || (count < bytes.size() && std::ferror(m_stream.get()) != 0)) {
        throwIfExhausted(errno);
        throw PictureError("the file cannot be read", "check the disk or the network");
    }
    return {bytes.data(), count};
}

} // namespace rasterplan_tool
