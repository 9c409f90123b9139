#include "report/DrawingCheckReport.h"

#include "base/PathText.h"
#include "base/VisibleText.h"

#include <nlohmann/json.hpp>

#include <string>

namespace rasterplan_tool {
namespace {

// Of one value only: where memory has run out, the destructor of a list or an object ends the program. What
// stands in a drawing need not be UTF-8, which JSON must be.
std::string json(std::string_view text) {
    return nlohmann::json(visible(text)).dump();
}

} // namespace

void printFindings(std::ostream& out, const std::filesystem::path& drawing,
                   const std::vector<Finding>& findings) {
    const std::string name = shownText(drawing);
    for (const Finding& finding : findings) {
        out << name << ':' << std::to_string(finding.line) << ": ";
        if (!finding.record.empty())
            out << visible(finding.record) << (finding.handle.empty() ? "" : ' ' + visible(finding.handle))
                << ": ";
        out << visible(finding.text) << '\n';
    }
}

void printFindingsAsJson(std::ostream& out, const std::vector<Finding>& findings) {
    out << '[';
    for (std::size_t i = 0; i < findings.size(); ++i) {
        const Finding& finding = findings[i];
        out << (i == 0 ? "\n" : ",\n") << "  {\"kind\": " << json(kindName(finding.kind))
            << ", \"record\": " << json(finding.record) << ", \"handle\": " << json(finding.handle)
            << ", \"line\": " << std::to_string(finding.line) << ", \"text\": " << json(finding.text) << '}';
    }
    out << (findings.empty() ? "]\n" : "\n]\n");
}

} // namespace rasterplan_tool
