#include "template/SlotArray.h"

#include <cstring>
#include <utility>

namespace rasterplan {

SlotArray::~SlotArray() {
    if (!m_payloads)
        return;
    if (m_mayHoldText)
        for (std::uint32_t slot = 0; slot < m_count; ++slot)
            dropText(slot);
    m_memory->deallocate(m_payloads, blockSize(), alignof(std::uint64_t));
}

SlotArray::SlotArray(SlotArray&& other) noexcept
    : m_memory(other.m_memory)
    , m_payloads(std::exchange(other.m_payloads, nullptr))
    , m_count(other.m_count)
    , m_mayHoldText(other.m_mayHoldText) {}

SlotArray& SlotArray::operator=(SlotArray&& other) noexcept {
    std::swap(m_memory, other.m_memory);
    std::swap(m_payloads, other.m_payloads);
    std::swap(m_count, other.m_count);
    std::swap(m_mayHoldText, other.m_mayHoldText);
    return *this;
}

void SlotArray::takeMemoryFrom(std::pmr::memory_resource& memory) noexcept {
    if (!m_payloads)
        m_memory = &memory;
}

void SlotArray::takeBlock() {
    void* const block = m_memory->allocate(blockSize(), alignof(std::uint64_t));
    m_payloads = static_cast<std::uint64_t*>(std::memset(block, 0, blockSize()));
}

SlotArray::Text* SlotArray::copyOf(std::wstring_view characters) {
    auto* const text = static_cast<Text*>(m_memory->allocate(Text::sizeOf(characters.size()), alignof(Text)));
    text->length = characters.size();
    characters.copy(text->characters(), characters.size());
    return text;
}

void SlotArray::free(Text* text) noexcept {
    m_memory->deallocate(text, Text::sizeOf(text->length), alignof(Text));
}

} // namespace rasterplan
