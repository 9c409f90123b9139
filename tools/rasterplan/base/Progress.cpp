#include "base/Progress.h"

#include "base/Terminal.h"

#include <iomanip>
#include <iostream>
#include <string>

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
    // Blanks and no escape sequence: every terminal understands them. As many as are needed: a line that
    // reaches the end of a window goes on in the next one, and stays.
    if (m_length > 0)
        *m_stream << '\r' << std::setw(m_length) << "" << '\r' << std::flush;
    m_length = 0;
}

void Progress::tell(std::size_t done, std::size_t all) {
    if (m_stream == nullptr || std::chrono::steady_clock::now() < m_next)
        return;
    m_next = std::chrono::steady_clock::now() + pause;
    // As text: a stream could write digits in groups.
    const std::string line = std::string(m_work) + ": " + std::to_string(done) + " of " + std::to_string(all);
    m_length = static_cast<int>(line.size());
    *m_stream << '\r' << line << std::flush;
}

} // namespace rasterplan_tool
