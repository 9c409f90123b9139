#pragma once

#include <chrono>
#include <cstddef>
#include <ostream>
#include <string_view>

namespace rasterplan_tool {

/// Whether what is printed to `stream` shows on a terminal at once; only the standard error stream can do so.
bool showsOnTerminal(const std::ostream& stream);

/// One line that says how far a long work has come, and that vanishes with the object. It appears only on a
/// terminal and only after a second, and changes five times a second. Of ten million parts it fits a window
/// of 40 columns. Needs no memory.
class Progress {
public:
    /// `work` stands before the numbers: "reading pictures"; it must live as long as the object.
    Progress(std::ostream& stream, std::string_view work)
        : Progress(stream, work, showsOnTerminal(stream)) {}

    /// The same, with the say whether `stream` is a terminal.
    Progress(std::ostream& stream, std::string_view work, bool isTerminal);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// Takes the line away until it changes, so that something else can be printed.
    void hide();

    /// Tells that `done` of `all` parts are done, never fewer than before.
    void tell(std::size_t done, std::size_t all);

private:
    std::ostream* m_stream; // none: nothing is shown
    std::string_view m_work;
    std::chrono::steady_clock::time_point m_next; // when the line shows or changes
    int m_length = 0;                             // of what is shown
};

} // namespace rasterplan_tool
