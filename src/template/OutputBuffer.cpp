#include "template/OutputBuffer.h"

#include "base/Utf8.h"

namespace rasterplan {

OutputBuffer::OutputBuffer(std::FILE* file)
    : m_file(file)
    , m_block(new char[blockSize]) {}

OutputBuffer::~OutputBuffer() {
    flush();
}

void OutputBuffer::appendLong(std::string_view bytes) {
    while (!bytes.empty()) {
        const std::string_view part = bytes.substr(0, blockSize);
        append(part);
        bytes.remove_prefix(part.size());
    }
}

void OutputBuffer::appendText(std::wstring_view text) {
    for (const wchar_t c : text) {
        if (c == L'\n')
            append("\r\n");
        else
            commit(ZelkBase::encodeUtf8(c, reserve(ZelkBase::utf8Capacity)));
    }
}

void OutputBuffer::flush() {
    std::fwrite(m_block.get(), 1, m_size, m_file);
    m_flushed += m_size;
    m_size = 0;
}

} // namespace rasterplan
