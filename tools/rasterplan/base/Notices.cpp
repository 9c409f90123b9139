#include "base/Notices.h"

#include "base/Failure.h"

#include <algorithm>

namespace rasterplan_tool {
namespace {

constexpr std::size_t mostNamed = 3;

} // namespace

void Notices::warn(const std::string& text) {
    m_complaints.push_back({{}, {{{}, text}}});
}

void Notices::warn(const Subject& subject, const std::string& complaint, const std::string& text) {
    auto found = std::find_if(m_complaints.begin(), m_complaints.end(),
                              [&](const Complaint& known) { return known.text == complaint; });
    if (found == m_complaints.end())
        found = m_complaints.insert(found, {complaint, {}});
    found->warnings.push_back({subject, text});
}

void Notices::note(const std::string& text) {
    m_notes.push_back(text);
}

std::string Notices::lineOf(const Warning& warning) {
    std::string line = warning.subject.place;
    for (const std::string* const part : {&warning.subject.name, &warning.text})
        if (!part->empty())
            line += (line.empty() ? "" : ": ") + *part;
    return line;
}

std::string Notices::lineOf(const Complaint& complaint) {
    std::string names;
    for (std::size_t i = 0; i < mostNamed; ++i)
        names += (i == 0 ? "" : ", ") + complaint.warnings[i].subject.name;
    names += " and " + std::to_string(complaint.warnings.size() - mostNamed) + " more (" +
             std::to_string(complaint.warnings.size()) + " in all)";
    return lineOf(
        {{complaint.warnings.front().subject.place, names}, complaint.text + "; --verbose tells of each"});
}

void Notices::tell(Console& console) const {
    std::size_t count = 0;
    for (const Complaint& complaint : m_complaints) {
        count += complaint.warnings.size();
        if (console.verbosity == Verbosity::Quiet)
            continue;
        if (complaint.warnings.size() > mostNamed && console.verbosity != Verbosity::Verbose) {
            console.warning(lineOf(complaint));
            continue;
        }
        for (const Warning& warning : complaint.warnings)
            console.warning(lineOf(warning));
    }
    if (console.verbosity != Verbosity::Quiet)
        for (const std::string& text : m_notes)
            console.note(text);
    if (console.isStrict && count > 0) {
        throw WarningsFound(std::to_string(count) + (count == 1 ? " warning" : " warnings") +
                            ", which --strict does not let pass, so nothing more is written; mend what is "
                            "warned of, or leave --strict out");
    }
}

} // namespace rasterplan_tool
