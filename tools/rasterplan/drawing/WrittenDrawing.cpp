#include "drawing/WrittenDrawing.h"

#include "base/Failure.h"
#include "base/Resources.h"
#include "reader/DxfGroups.h"

#include <cerrno>
#include <fstream>
#include <string>
#include <string_view>

namespace rasterplan_tool {
namespace {

// Takes the lines of a drawing, a code and a value in turn.
class GroupCounter {
public:
    explicit GroupCounter(WrittenDrawing& drawing)
        : m_drawing(drawing) {}

    void take(std::string_view line) {
        const std::uintmax_t place = m_place;
        m_place += line.size() + 1;
        if (!m_valueIsNext) {
            const std::string_view code = trimmed(line);
            if (code.empty())
                return; // behind the last group
            m_beginsRecord = code == "0";
            m_isViewMode = m_inViewport && code == "71";
        } else {
            m_drawing.isComplete = false;
            if (m_beginsRecord)
                begin(trimmed(line));
            else if (m_isViewMode && line.starts_with("0.0") && trimmed(line) == "0.0")
                m_drawing.viewModeAsReal = place;
        }
        m_valueIsNext = !m_valueIsNext;
    }

private:
    void begin(std::string_view record) {
        m_inViewport = record == "VPORT";
        m_drawing.isComplete = record == "EOF";
        m_drawing.images += record == "IMAGE" ? 1 : 0;
        m_drawing.imageDefinitions += record == "IMAGEDEF" ? 1 : 0;
    }

    WrittenDrawing& m_drawing;
    std::uintmax_t m_place = 0; // of the next line, in the file
    bool m_valueIsNext = false;
    bool m_beginsRecord = false;
    bool m_inViewport = false;
    bool m_isViewMode = false;
};

} // namespace

WrittenDrawing readBack(const std::filesystem::path& drawing) {
    errno = 0;
    std::ifstream stream(drawing, std::ios::binary);
    if (!stream.is_open()) {
        throwIfExhausted(errno);
        throw ExportFailed("the finished drawing cannot be read back; try again");
    }
    WrittenDrawing result;
    GroupCounter counter(result);
    std::string text; // the beginning of a line that is not yet there as a whole, then a block
    for (;;) {
        constexpr std::size_t blockSize = 65536;
        const std::size_t kept = text.size();
        text.resize(kept + blockSize);
        stream.read(text.data() + kept, blockSize);
        const auto added = static_cast<std::size_t>(stream.gcount());
        text.resize(kept + added);
        result.size += added;
        if (added == 0) {
            if (!text.empty())
                counter.take(text);
            return result;
        }
        std::string_view rest = text;
        for (std::size_t end = rest.find('\n', kept); end != std::string_view::npos; end = rest.find('\n')) {
            counter.take(rest.substr(0, end));
            rest.remove_prefix(end + 1);
        }
        text.erase(0, text.size() - rest.size());
    }
}

} // namespace rasterplan_tool
