#include "support/DxfRecords.h"

#include <algorithm>
#include <stdexcept>

namespace rasterplan::test {
namespace {

void demand(bool holds, int line, const std::string& what) {
    if (!holds)
        throw std::runtime_error("line " + std::to_string(line) + ": " + what);
}

} // namespace

const std::string& DxfRecord::value(int code) const {
    const auto group =
        std::find_if(groups.begin(), groups.end(), [code](const DxfGroup& g) { return g.code == code; });
    demand(group != groups.end(), line, type + " has no code " + std::to_string(code));
    return group->value;
}

std::vector<std::string> DxfRecord::values(int code) const {
    std::vector<std::string> found;
    for (const DxfGroup& group : groups)
        if (group.code == code)
            found.push_back(group.value);
    return found;
}

std::string DxfRecord::handle() const {
    if (section == "HEADER")
        return {}; // $HANDSEED carries code 5 and defines nothing
    const std::vector<std::string> handles = values(type == "DIMSTYLE" ? 105 : 5);
    demand(handles.size() <= 1, line, type + " has two handles");
    return handles.empty() ? std::string() : handles.front();
}

std::vector<DxfRecord> readRecords(const std::vector<DxfGroup>& groups) {
    std::vector<DxfRecord> records;
    for (const DxfGroup& group : groups) {
        if (group.code == 0) {
            records.push_back({group.value, {}, {}, {}, group.line});
        } else {
            demand(!records.empty(), group.line, "pair before the first record");
            records.back().groups.push_back(group);
        }
    }

    std::string section;
    std::string table;
    for (DxfRecord& record : records) {
        if (record.type == "SECTION") {
            demand(section.empty(), record.line, "section inside section " + section);
            section = record.value(2);
        } else if (record.type == "TABLE") {
            demand(section == "TABLES" && table.empty(), record.line, "table at a wrong place");
            table = record.value(2);
        } else if (record.type == "EOF") {
            demand(section.empty(), record.line, "EOF inside section " + section);
        } else {
            demand(!section.empty(), record.line, record.type + " outside the sections");
            demand(section != "TABLES" || !table.empty() || record.type == "ENDSEC", record.line,
                   record.type + " outside the tables");
        }
        record.section = section;
        record.table = table;
        if (record.type == "ENDTAB") {
            table.clear();
        } else if (record.type == "ENDSEC") {
            demand(table.empty(), record.line, "section ends inside table " + table);
            section.clear();
        }
    }
    demand(section.empty(), groups.empty() ? 0 : groups.back().line, "section " + section + " does not end");
    return records;
}

std::vector<DxfVariable> headerVariables(const std::vector<DxfRecord>& records) {
    const auto header = std::find_if(records.begin(), records.end(), [](const DxfRecord& record) {
        return record.type == "SECTION" && record.section == "HEADER";
    });
    demand(header != records.end(), 0, "no HEADER section");
    std::vector<DxfVariable> variables;
    for (const DxfGroup& group : header->groups)
        if (group.code == 9)
            variables.push_back({group.value, {}});
        else if (!variables.empty())
            variables.back().groups.push_back(group);
        else
            demand(group.code == 2, group.line, "pair that belongs to no variable");
    return variables;
}

} // namespace rasterplan::test
