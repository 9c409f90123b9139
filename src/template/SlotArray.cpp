#include "template/SlotArray.h"

#include <algorithm>
#include <stdexcept>

namespace rasterplan {

template <typename Text>
void SlotArray::setText(std::size_t slot, Text text) {
    if (text.size() > longestText)
        throw std::length_error("text of a section too long");
    const auto isPrintableAscii = [](auto c) { return c >= ' ' && c <= '~'; };
    const bool isPlain = std::all_of(text.begin(), text.end(), isPrintableAscii);
    const std::uint64_t place = isPlain ? m_memory->plainCharacters.size() : m_memory->characters.size();
    if (isPlain)
        m_memory->plainCharacters.append(text.begin(), text.end());
    else
        m_memory->characters.append(text.begin(), text.end());
    m_memory->payloads[slot] = place << lengthBits | text.size();
    m_memory->kinds[slot] = isPlain ? Kind::plainText : Kind::text;
}

template void SlotArray::setText(std::size_t, std::wstring_view);
template void SlotArray::setText(std::size_t, std::string_view);

void SlotArray::takeMemory() {
    if (!m_memory)
        m_memory = std::make_unique<Memory>();
    m_memory->payloads.resize(m_count);
    m_memory->kinds.resize(m_count);
}

} // namespace rasterplan
