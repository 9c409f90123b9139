#include "reader/DxfRecords.h"

#include <algorithm>
#include <utility>

namespace rasterplan_tool {
namespace {

constexpr int commentCode = 999;

bool areOfAWholeText(const std::vector<DxfFault>& faults) {
    return std::none_of(faults.begin(), faults.end(), [](const DxfFault& fault) {
        return fault.kind == DxfFaultKind::NoCode || fault.kind == DxfFaultKind::CutShort;
    });
}

// Follows the sections and tables from record to record, and tells each where it stands.
class Places {
public:
    explicit Places(std::vector<DxfFault>& faults)
        : m_faults(faults) {}

    void take(DxfRecord& record) {
        const std::string name(trimmed(record.value(2)));
        if (record.type == "SECTION") {
            demand(m_section.empty(), record.line, "section inside section " + m_section);
            m_section = name;
        } else if (record.type == "TABLE") {
            demand(m_section == "TABLES" && m_table.empty(), record.line, "table at a wrong place");
            m_table = name;
        } else if (record.type == "EOF") {
            demand(m_section.empty(), record.line, "EOF inside section " + m_section);
        } else {
            demand(!m_section.empty(), record.line, record.type + " outside the sections");
            demand(m_section != "TABLES" || !m_table.empty() || record.type == "ENDSEC", record.line,
                   record.type + " outside the tables");
        }
        record.section = m_section;
        record.table = m_table;
        if (record.type == "ENDSEC")
            demand(m_table.empty(), record.line, "section ends inside table " + m_table);
        if (record.type == "ENDTAB" || record.type == "ENDSEC")
            m_table.clear();
        if (record.type == "ENDSEC")
            m_section.clear();
    }

private:
    void demand(bool holds, std::size_t line, const std::string& otherwise) {
        if (!holds)
            m_faults.push_back({DxfFaultKind::Misplaced, line, otherwise});
    }

    std::vector<DxfFault>& m_faults;
    std::string m_section;
    std::string m_table;
};

} // namespace

const std::string& DxfRecord::value(int code) const {
    static const std::string none;
    const auto group =
        std::find_if(groups.begin(), groups.end(), [code](const DxfGroup& g) { return g.code == code; });
    return group == groups.end() ? none : group->value;
}

std::vector<std::string> DxfRecord::values(int code) const {
    std::vector<std::string> found;
    for (const DxfGroup& group : groups)
        if (group.code == code)
            found.push_back(group.value);
    return found;
}

std::optional<double> DxfRecord::number(int code) const {
    return realNumber(value(code));
}

std::string DxfRecord::handle() const {
    if (type == "SECTION")
        return {}; // $HANDSEED carries code 5 and defines nothing
    return std::string(trimmed(value(type == "DIMSTYLE" ? 105 : 5)));
}

bool DxfDrawing::isWhole() const {
    return areOfAWholeText(faults);
}

std::span<const DxfRecord> DxfDrawing::wholeRecords() const {
    return std::span(records).first(records.size() - (isWhole() || records.empty() ? 0 : 1));
}

std::vector<DxfRecord> readRecords(std::vector<DxfGroup> groups, std::vector<DxfFault>& faults) {
    std::vector<DxfRecord> records;
    const std::size_t lastLine = groups.empty() ? 1 : groups.back().line;
    for (DxfGroup& group : groups) {
        if (group.code == commentCode)
            continue;
        if (group.code == 0)
            records.push_back({std::string(trimmed(group.value)), {}, {}, {}, group.line});
        else if (!records.empty())
            records.back().groups.push_back(std::move(group));
        else
            faults.push_back({DxfFaultKind::Misplaced, group.line, "pair before the first record"});
    }
    Places places(faults);
    for (DxfRecord& record : records)
        places.take(record);
    if (areOfAWholeText(faults) && (records.empty() || records.back().type != "EOF"))
        faults.push_back({DxfFaultKind::CutShort, lastLine, "no EOF at the end"});
    return records;
}

DxfDrawing readDrawing(std::string_view text) {
    DxfDrawing drawing;
    std::vector<DxfGroup> groups = readGroups(text, drawing.faults);
    drawing.records = readRecords(std::move(groups), drawing.faults);
    std::stable_sort(drawing.faults.begin(), drawing.faults.end(),
                     [](const DxfFault& a, const DxfFault& b) { return a.line < b.line; });
    return drawing;
}

std::vector<DxfVariable> headerVariables(const std::vector<DxfRecord>& records) {
    const auto header = std::find_if(records.begin(), records.end(), [](const DxfRecord& record) {
        return record.type == "SECTION" && record.section == "HEADER";
    });
    std::vector<DxfVariable> variables;
    if (header == records.end())
        return variables;
    for (const DxfGroup& group : header->groups)
        if (group.code == 9)
            variables.push_back({std::string(trimmed(group.value)), {}});
        else if (!variables.empty())
            variables.back().groups.push_back(group);
    return variables;
}

} // namespace rasterplan_tool
