#include "template/TemplateStream.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace rasterplan {
namespace {

/// Reads lines without depending on the system's text mode.
class LineReader {
public:
    enum class End {
        lineFeed,
        file,
        tooLong, ///< The line goes on, but no more of it is read.
        error,
    };

    explicit LineReader(std::FILE* source)
        : m_source(source) {}

    /// Reads the next line without its end; a CR directly before the line feed belongs to the end.
    End next(std::string& line) {
        line.clear();
        while (true) {
            if (m_position == m_size && !fill()) {
                if (std::ferror(m_source))
                    return End::error;
                return line.size() > longestTemplateLine ? shorten(line) : End::file;
            }
            const char c = m_block[m_position++];
            if (c == '\n') {
                if (line.ends_with('\r'))
                    line.pop_back();
                return line.size() > longestTemplateLine ? shorten(line) : End::lineFeed;
            }
            // One more than a line may have: the last one may be the CR of its end.
            if (line.size() > longestTemplateLine)
                return shorten(line);
            line += c;
        }
    }

private:
    static End shorten(std::string& line) {
        line.resize(longestTemplateLine);
        return End::tooLong;
    }

    bool fill() {
        m_size = std::fread(m_block.data(), 1, m_block.size(), m_source);
        m_position = 0;
        return m_size > 0;
    }

    std::FILE* m_source;
    std::array<char, 4096> m_block;
    std::size_t m_position = 0;
    std::size_t m_size = 0;
};

std::wstring widened(std::string_view bytes) {
    std::wstring text;
    for (const char c : bytes)
        text += static_cast<wchar_t>(static_cast<unsigned char>(c));
    return text;
}

} // namespace

bool streamTemplate(std::FILE* source, const DxfSectionRegistry& registry, OutputBuffer& out) {
    LineReader reader(source);
    std::string line;
    while (true) {
        const LineReader::End end = reader.next(line);
        if (end == LineReader::End::error)
            return false;
        if (line.starts_with('#')) {
            const auto before = out.count();
            registry.renderPlaceholder(widened(line), out);
            if (out.count() == before)
                return false;
        } else {
            out.append(line);
            out.append(lineEnd);
        }
        if (end == LineReader::End::tooLong)
            return false;
        if (end == LineReader::End::file)
            return true;
    }
}

} // namespace rasterplan
