#include "support/DxfGroups.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>

namespace rasterplan::test {
namespace {

enum class Kind { Text, Integer, Boolean, Real, Handle };

struct CodeRange {
    int first;
    int last;
    Kind kind;
};

constexpr CodeRange codeRanges[] = {
    {5, 5, Kind::Handle},      {10, 59, Kind::Real},        {60, 99, Kind::Integer},
    {105, 105, Kind::Handle},  {110, 149, Kind::Real},      {160, 179, Kind::Integer},
    {210, 239, Kind::Real},    {270, 289, Kind::Integer},   {290, 299, Kind::Boolean},
    {320, 369, Kind::Handle},  {370, 389, Kind::Integer},   {390, 399, Kind::Handle},
    {400, 409, Kind::Integer}, {420, 429, Kind::Integer},   {440, 459, Kind::Integer},
    {460, 469, Kind::Real},    {480, 481, Kind::Handle},    {1005, 1005, Kind::Handle},
    {1010, 1059, Kind::Real},  {1060, 1071, Kind::Integer},
};

Kind kindOf(int code) {
    const auto* range =
        std::find_if(std::begin(codeRanges), std::end(codeRanges),
                     [code](const CodeRange& r) { return r.first <= code && code <= r.last; });
    return range == std::end(codeRanges) ? Kind::Text : range->kind;
}

[[noreturn]] void fail(int line, const std::string& what) {
    throw std::runtime_error("line " + std::to_string(line) + ": " + what);
}

template <typename Number, typename... Base>
bool parsesWhole(std::string_view text, Number& number, Base... base) {
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number, base...);
    return error == std::errc() && stop == end;
}

bool isHandle(std::string_view text, unsigned long& number) {
    return text.size() <= 8 && (text == "0" || !text.starts_with('0')) &&
           text.find_first_not_of("0123456789ABCDEF") == std::string_view::npos &&
           parsesWhole(text, number, 16);
}

// Takes lines off a text and holds it to one kind of line end.
class LineReader {
public:
    LineReader(std::string_view text, int firstLine)
        : m_rest(text)
        , m_line(firstLine - 1) {}

    bool atEnd() const { return m_rest.empty(); }
    int line() const { return m_line; }

    std::string_view next() {
        ++m_line;
        const std::size_t end = m_rest.find('\n');
        std::string_view text = m_rest.substr(0, end);
        if (end == std::string_view::npos) {
            m_rest = {};
        } else {
            m_rest.remove_prefix(end + 1);
            const LineEnd found = text.ends_with('\r') ? LineEnd::CrLf : LineEnd::Lf;
            if (m_lineEnd != LineEnd::Unknown && found != m_lineEnd)
                fail(m_line, "another line end than before");
            m_lineEnd = found;
            if (found == LineEnd::CrLf)
                text.remove_suffix(1);
        }
        if (text.find('\r') != std::string_view::npos)
            fail(m_line, "carriage return inside a line");
        return text;
    }

private:
    enum class LineEnd { Unknown, Lf, CrLf };

    std::string_view m_rest;
    int m_line;
    LineEnd m_lineEnd = LineEnd::Unknown;
};

} // namespace

std::vector<DxfGroup> readGroups(std::string_view text, int firstLine) {
    std::vector<DxfGroup> groups;
    LineReader reader(text, firstLine);
    while (!reader.atEnd()) {
        std::string_view codeText = reader.next();
        const int line = reader.line();
        if (!groups.empty() && groups.back().code == 0 && groups.back().value == "EOF") {
            if (!codeText.empty())
                fail(line, "text behind EOF");
            continue;
        }
        // Writers may pad the code to three columns.
        codeText.remove_prefix(std::min(codeText.find_first_not_of(' '), codeText.size()));
        int code = 0;
        if (!parsesWhole(codeText, code) || code < -5 || code > 1071)
            fail(line, "no group code: \"" + std::string(codeText) + '"');
        if (reader.atEnd())
            fail(line, "group code without value");
        groups.push_back({code, std::string(reader.next()), line});
    }
    return groups;
}

bool isPointerCode(int code) {
    return kindOf(code) == Kind::Handle && code != 5 && code != 105;
}

bool valueFitsCode(const DxfGroup& group) {
    long long integer = 0;
    double real = 0.0;
    unsigned long handle = 0;
    switch (kindOf(group.code)) {
    case Kind::Integer:
        return parsesWhole(group.value, integer);
    case Kind::Boolean:
        return group.value == "0" || group.value == "1";
    case Kind::Real:
        return parsesWhole(group.value, real);
    case Kind::Handle:
        return isHandle(group.value, handle);
    case Kind::Text:
        break;
    }
    return true;
}

unsigned long handleNumber(std::string_view text) {
    unsigned long number = 0;
    if (!isHandle(text, number))
        throw std::runtime_error("no handle: \"" + std::string(text) + '"');
    return number;
}

} // namespace rasterplan::test
