#include "template/OutputBuffer.h"

#include "base/Utf8.h"

#include <algorithm>

namespace rasterplan {

OutputBuffer::OutputBuffer(std::FILE* file)
    : m_file(file)
    , m_block(new char[blockSize]) {}

OutputBuffer::~OutputBuffer() {
    flush();
}

void OutputBuffer::appendText(std::wstring_view text) {
    constexpr std::size_t partSize = blockSize / ZelkBase::utf8Capacity;
    for (; !text.empty(); text.remove_prefix(std::min(text.size(), partSize))) {
        const std::wstring_view part = text.substr(0, partSize);
        char* end = reserve(part.size() * ZelkBase::utf8Capacity);
        for (const wchar_t c : part) {
            if (c == L'\n')
                *end++ = '\r';
            end = ZelkBase::encodeUtf8(c, end);
        }
        commit(end);
    }
}

void OutputBuffer::flush() {
    std::fwrite(m_block.get(), 1, m_size, m_file);
    m_flushed += m_size;
    m_size = 0;
}

} // namespace rasterplan
