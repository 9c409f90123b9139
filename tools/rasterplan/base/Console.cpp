#include "base/Console.h"

#include "base/Failure.h"
#include "base/VisibleText.h"

#include <algorithm>

namespace rasterplan_tool {
namespace {

void printLines(std::ostream& stream, std::string_view label, std::string_view text) {
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        stream << "rasterplan: " << label << ": ";
        printVisible(stream, text.substr(0, end));
        stream << '\n';
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

} // namespace

void Console::error(std::string_view text) {
    printLines(err, "error", text);
}

void Console::warning(std::string_view text) {
    printLines(err, "warning", text);
}

void Console::note(std::string_view text) {
    printLines(err, "note", text);
}

void Console::flush() {
    if (!out.flush()) {
        throw ExportFailed(
            "the result could not be printed; the disk is probably full, or the output is closed");
    }
}

} // namespace rasterplan_tool
