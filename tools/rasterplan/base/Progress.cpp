#include "base/Progress.h"

#include "base/Terminal.h"

#include <iostream>

namespace rasterplan_tool {
namespace {

constexpr std::chrono::milliseconds silence{1000};
constexpr std::chrono::milliseconds pause{200};

} // namespace

bool showsOnTerminal(const std::ostream& stream) {
    return stream.rdbuf() == std::cerr.rdbuf() && standardErrorIsTerminal();
}

Progress::Progress(std::ostream& stream, std::string_view work, bool isTerminal)
    : m_stream(isTerminal ? &stream : nullptr)
    , m_work(work)
    , m_next(std::chrono::steady_clock::now() + silence) {}

Progress::~Progress() {
    hide();
}

void Progress::hide() {
    // Blanks and no escape sequence: every terminal understands them.
    constexpr std::string_view blankLine = "\r                                                            \r";
    if (m_isShown)
        *m_stream << blankLine << std::flush;
    m_isShown = false;
}

void Progress::tell(std::size_t done, std::size_t all) {
    if (m_stream == nullptr || std::chrono::steady_clock::now() < m_next)
        return;
    m_next = std::chrono::steady_clock::now() + pause;
    m_isShown = true;
    *m_stream << "\rrasterplan: " << m_work << ": " << done << " of " << all << std::flush;
}

} // namespace rasterplan_tool
