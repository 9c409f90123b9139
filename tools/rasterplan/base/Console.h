#pragma once

#include <ostream>
#include <string_view>

namespace rasterplan_tool {

/// Where the program speaks to its user; all text is UTF-8.
struct Console {
    std::ostream& out; ///< Results.
    std::ostream& err; ///< Errors and warnings.

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
