#include "template/TemplateStream.h"

#include <string>

namespace rasterplan {
namespace {

enum class LineEnd {
    LineFeed,
    File,
    TooLong, // The line goes on, but no more of it is read.
    Error,
};

// Reads the next line without its end, to which a CR directly before the line feed belongs. Nothing here
// depends on the system's text mode.
LineEnd readLine(std::FILE* source, std::string& line) {
    line.clear();
    int c = 0;
    // One more than a line may have: the last one may be the CR of its end.
    while ((c = std::getc(source)) != EOF && c != '\n' && line.size() <= longestTemplateLine)
        line += static_cast<char>(c);
    if (c == EOF && std::ferror(source))
        return LineEnd::Error;
    if (c == '\n' && line.ends_with('\r'))
        line.pop_back();
    if (line.size() > longestTemplateLine) {
        line.resize(longestTemplateLine);
        return LineEnd::TooLong;
    }
    return c == EOF ? LineEnd::File : LineEnd::LineFeed;
}

} // namespace

bool streamTemplate(std::FILE* source, OutputBuffer& out, const std::function<void(TopLevelKey)>& expand) {
    std::string line;
    while (true) {
        const LineEnd end = readLine(source, line);
        if (end == LineEnd::Error)
            return false;
        if (line.starts_with('#')) {
            const auto before = out.count();
            if (const auto key = findTopLevelKey(line))
                expand(*key);
            if (out.count() == before)
                return false;
        } else {
            out.append(line);
            out.append(lineEnd);
        }
        if (end == LineEnd::TooLong)
            return false;
        if (end == LineEnd::File)
            return true;
    }
}

} // namespace rasterplan
