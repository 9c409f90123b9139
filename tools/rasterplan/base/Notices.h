#pragma once

#include "base/Console.h"

#include <cstddef>
#include <string>
#include <vector>

namespace rasterplan_tool {

/// What a warning is about.
struct Subject {
    std::string place; ///< Where it stands, such as "SITE.json:12"; may be empty.
    std::string name;  ///< What it is called, such as `image 3 ("south.png")`.
};

/// Collects what a run has to warn of, and tells it at once: several subjects with one complaint in one line.
class Notices {
public:
    /// Notes a warning on its own. `text` says what, where and what to do.
    void warn(const std::string& text);

    /// Notes a warning of one of several subjects that may share it. `text` says what and what to do, with
    /// the numbers of this subject; `complaint` says the same without any, for the line that stands for all
    /// subjects with this complaint.
    void warn(const Subject& subject, const std::string& complaint, const std::string& text);

    /// Notes what is right, but worth knowing.
    void note(const std::string& text);

    /// Prints the warnings and then the notes as the console's verbosity wants it: complaints of more than
    /// three subjects in one line with the first three and the count, all of them, or nothing. Throws
    /// WarningsFound if there are warnings and the console is strict.
    void tell(Console& console) const;

private:
    struct Warning {
        Subject subject;
        std::string text;
    };
    struct Complaint {
        std::string text; // empty where there is one warning alone
        std::vector<Warning> warnings;
    };

    static std::string lineOf(const Warning& warning);
    static std::string lineOf(const Complaint& complaint);

    std::vector<Complaint> m_complaints; // in the order in which they first came
    std::vector<std::string> m_notes;
};

} // namespace rasterplan_tool
