#include "base/Progress.h"

#include "base/Terminal.h"

#include <iomanip>
#include <iostream>

namespace rasterplan_tool {
namespace {

constexpr std::chrono::milliseconds silence{1000};
constexpr std::chrono::milliseconds pause{200};

int digitsOf(std::size_t number) {
    return number < 10 ? 1 : 1 + digitsOf(number / 10);
}

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
    constexpr std::string_view behindWork = ": ";
    constexpr std::string_view between = " of ";
    m_length =
        static_cast<int>(m_work.size() + behindWork.size() + between.size()) + digitsOf(done) + digitsOf(all);
    *m_stream << '\r' << m_work << behindWork << done << between << all << std::flush;
}

} // namespace rasterplan_tool
