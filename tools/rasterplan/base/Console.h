#pragma once

#include <ostream>
#include <string_view>

namespace rasterplan_tool {

/// How much of what a run warns of the user wants to read.
enum class Verbosity {
    Quiet,  ///< Nothing.
    Normal, ///< Equal complaints in one line.
    Verbose ///< Every single one.
};

/// Where the program speaks to its user; all text is UTF-8.
struct Console {
    std::ostream& out; ///< Results.
    std::ostream& err; ///< Errors and warnings.
    Verbosity verbosity = Verbosity::Normal;
    bool isStrict = false; ///< Warnings make the run fail.

    /// Prints "rasterplan: error: " and the text, for each of its lines; what would steer a terminal is made
    /// visible. Needs no memory.
    void error(std::string_view text);

    /// Prints "rasterplan: warning: " and the text, as `error` does.
    void warning(std::string_view text);

    /// Prints "rasterplan: note: " and the text, as `error` does: what is right, but worth knowing.
    void note(std::string_view text);

    /// Sends the results on their way. Throws ExportFailed where they cannot be printed.
    void flush();
};

} // namespace rasterplan_tool
