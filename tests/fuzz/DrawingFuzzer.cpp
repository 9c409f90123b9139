// The input is a drawing of any writer. It is read to its end or to a fault, the same with either line end,
// and what is found in it stands in order and in lines that a terminal and a JSON reader take.

#include "fuzz/Fuzzing.h"

#include "base/VisibleText.h"
#include "report/DrawingCheckReport.h"
#include "support/StrictDxf.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>
#include <string>

namespace {

using namespace rasterplan_tool;
using rasterplan::fuzz::demand;

bool isSameDrawing(const DxfDrawing& a, const DxfDrawing& b) {
    const auto isSameGroup = [](const DxfGroup& x, const DxfGroup& y) {
        return x.code == y.code && x.value == y.value && x.line == y.line;
    };
    const auto isSameRecord = [&](const DxfRecord& x, const DxfRecord& y) {
        return x.type == y.type && x.section == y.section && x.table == y.table && x.line == y.line &&
               std::equal(x.groups.begin(), x.groups.end(), y.groups.begin(), y.groups.end(), isSameGroup);
    };
    return a.faults.size() == b.faults.size() &&
           std::equal(a.records.begin(), a.records.end(), b.records.begin(), b.records.end(), isSameRecord);
}

void demandLines(const DxfDrawing& drawing, std::size_t lines) {
    std::size_t last = 0;
    for (const DxfFault& fault : drawing.faults) {
        demand(last <= fault.line && fault.line <= lines + 1, "a fault at a wrong line");
        demand(!fault.text.empty(), "a fault without words");
        last = fault.line;
    }
    last = 0;
    for (const DxfRecord& record : drawing.records) {
        demand(last < record.line && record.line <= lines, "a record at a wrong line");
        last = record.line;
    }
}

void demandStrictlyRead(const std::string& text, const DxfDrawing& drawing) {
    try {
        rasterplan::test::strictRecords(rasterplan::test::strictGroups(text));
    } catch (const std::runtime_error&) {
        return;
    }
    demand(drawing.faults.empty(), "a fault in what is strictly a drawing");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string text(data, data + size);
    const DxfDrawing drawing = readDrawing(text);
    demandLines(drawing, static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1);
    demandStrictlyRead(text, drawing);

    const std::vector<Finding> findings = checkRecords(drawing);
    demand(std::is_sorted(findings.begin(), findings.end(),
                          [](const Finding& a, const Finding& b) { return a.kind < b.kind; }),
           "findings out of their order");
    std::ostringstream shown;
    printFindings(shown, "plan.dxf", findings);
    demand(std::count(shown.view().begin(), shown.view().end(), '\n') ==
               static_cast<std::ptrdiff_t>(findings.size()),
           "not a line for each finding");
    std::ostringstream json;
    printFindingsAsJson(json, findings);
    std::string ofOneLine = json.str();
    std::erase(ofOneLine, '\n');
    demand(visible(ofOneLine) == ofOneLine, "JSON that would steer a terminal");

    if (text.find('\r') == std::string::npos) {
        for (std::size_t at = text.find('\n'); at != std::string::npos; at = text.find('\n', at + 2))
            text.insert(at, 1, '\r');
        demand(isSameDrawing(drawing, readDrawing(text)), "another drawing with CR LF");
    }
    return 0;
}
