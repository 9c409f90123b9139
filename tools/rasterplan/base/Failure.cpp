#include "base/Failure.h"

namespace rasterplan_tool {
namespace {

constexpr std::size_t mostShown = 20;

} // namespace

void BadInputList::add(const std::string& text) {
    if (++m_count <= mostShown)
        m_text += (m_text.empty() ? "" : "\n") + text;
}

void BadInputList::throwIfAny() const {
    if (m_count > mostShown)
        throw BadInput(m_text + "\nand " + std::to_string(m_count - mostShown) + " more images are wrong");
    if (m_count > 0)
        throw BadInput(m_text);
}

} // namespace rasterplan_tool
