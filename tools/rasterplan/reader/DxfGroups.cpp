#include "reader/DxfGroups.h"

#include <charconv>
#include <cmath>

namespace rasterplan_tool {
namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr int smallestCode = -5;
constexpr int largestCode = 1071;

template <typename Number, typename... Base>
std::optional<Number> wholeNumber(std::string_view text, Base... base) {
    Number number{};
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number, base...);
    return error == std::errc() && stop == end ? std::optional<Number>(number) : std::nullopt;
}

class LineReader {
public:
    LineReader(std::string_view text, std::size_t firstLine)
        : m_rest(text)
        , m_line(firstLine - 1) {}

    bool atEnd() const { return m_rest.empty(); }
    std::size_t line() const { return m_line; }

    std::string_view next() {
        ++m_line;
        const std::size_t end = m_rest.find('\n');
        std::string_view text = m_rest.substr(0, end);
        m_rest.remove_prefix(end == std::string_view::npos ? m_rest.size() : end + 1);
        if (text.ends_with('\r'))
            text.remove_suffix(1);
        return text;
    }

private:
    std::string_view m_rest;
    std::size_t m_line;
};

} // namespace

std::vector<DxfGroup> readGroups(std::string_view text, std::vector<DxfFault>& faults,
                                 std::size_t firstLine) {
    if (text.starts_with(byteOrderMark))
        text.remove_prefix(byteOrderMark.size());
    std::vector<DxfGroup> groups;
    LineReader reader(text, firstLine);
    bool ended = false;
    while (!reader.atEnd()) {
        const std::string_view codeText = trimmed(reader.next());
        const std::size_t line = reader.line();
        if (ended && codeText.empty())
            continue;
        if (ended) {
            faults.push_back({DxfFaultKind::BehindEnd, line, "text behind EOF"});
            break;
        }
        const std::optional<int> code = wholeNumber<int>(codeText);
        if (!code || *code < smallestCode || *code > largestCode) {
            faults.push_back({DxfFaultKind::NoCode, line, "no group code: \"" + std::string(codeText) + '"'});
            break;
        }
        if (reader.atEnd()) {
            faults.push_back({DxfFaultKind::CutShort, line, "group code without value"});
            break;
        }
        const std::string_view value = reader.next();
        ended = *code == 0 && trimmed(value) == "EOF";
        groups.push_back({*code, std::string(value), line});
    }
    return groups;
}

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r";
    const std::size_t first = text.find_first_not_of(blanks);
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::optional<std::uint64_t> handleNumber(std::string_view text) {
    return wholeNumber<std::uint64_t>(trimmed(text), 16);
}

std::optional<double> realNumber(std::string_view text) {
    text = trimmed(text);
    if (text.starts_with('+'))
        text.remove_prefix(1);
    const std::optional<double> number = wholeNumber<double>(text);
    return number && std::isfinite(*number) ? number : std::nullopt;
}

} // namespace rasterplan_tool
