#include "support/StrictDxf.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>
#include <utility>

namespace rasterplan::test {
namespace {

using rasterplan_tool::DxfFault;

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

[[noreturn]] void fail(std::size_t line, const std::string& what) {
    throw std::runtime_error("line " + std::to_string(line) + ": " + what);
}

void failAtFirst(const std::vector<DxfFault>& faults) {
    if (!faults.empty())
        fail(faults.front().line, faults.front().text);
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

// Writers may pad the code to three columns, and do no more to it.
void demandOneForm(std::string_view text, std::size_t firstLine) {
    const std::size_t firstEnd = text.find('\n');
    const bool endsWithCr = firstEnd != std::string_view::npos && text.substr(0, firstEnd).ends_with('\r');
    bool isCode = true;
    for (std::size_t line = firstLine; !text.empty(); ++line, isCode = !isCode) {
        const std::size_t end = text.find('\n');
        std::string_view content = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        if (end != std::string_view::npos && content.ends_with('\r') != endsWithCr)
            fail(line, "another line end than before");
        if (end != std::string_view::npos && endsWithCr)
            content.remove_suffix(1);
        if (content.find('\r') != std::string_view::npos)
            fail(line, "carriage return inside a line");
        const std::size_t digits = std::min(content.find_first_not_of(' '), content.size());
        if (isCode && content.find_first_not_of("-0123456789", digits) != std::string_view::npos)
            fail(line, "no group code: \"" + std::string(content) + '"');
    }
}

} // namespace

std::vector<DxfGroup> strictGroups(std::string_view text, std::size_t firstLine) {
    std::vector<DxfFault> faults;
    std::vector<DxfGroup> groups = rasterplan_tool::readGroups(text, faults, firstLine);
    failAtFirst(faults);
    demandOneForm(text, firstLine);
    return groups;
}

std::vector<DxfRecord> strictRecords(std::vector<DxfGroup> groups) {
    std::vector<DxfFault> faults;
    std::vector<DxfRecord> records = rasterplan_tool::readRecords(std::move(groups), faults);
    failAtFirst(faults);
    for (const DxfRecord& record : records)
        if (record.type != "SECTION" && record.values(record.type == "DIMSTYLE" ? 105 : 5).size() > 1)
            fail(record.line, record.type + " has two handles");
    return records;
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

unsigned long strictHandle(std::string_view text) {
    unsigned long number = 0;
    if (!isHandle(text, number))
        throw std::runtime_error("no handle: \"" + std::string(text) + '"');
    return number;
}

} // namespace rasterplan::test
