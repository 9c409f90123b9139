#include "template/SlotArray.h"

#include <stdexcept>

namespace rasterplan {

std::uint64_t SlotArray::append(std::wstring_view text) {
    if (text.size() > longestText)
        throw std::length_error("text of a section too long");
    const std::uint64_t place = m_memory->characters.size();
    m_memory->characters += text;
    return place << lengthBits | text.size();
}

void SlotArray::takeMemory() {
    if (!m_memory)
        m_memory = std::make_unique<Memory>();
    m_memory->payloads.resize(m_count);
    m_memory->kinds.resize(m_count);
}

} // namespace rasterplan
