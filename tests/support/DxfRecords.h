#pragma once

#include "support/DxfGroups.h"

#include <string>
#include <vector>

namespace rasterplan::test {

/// One record of a DXF text, from its code 0 to the next: its type, where it stands, and its further pairs.
/// SECTION, ENDSEC, TABLE, ENDTAB and EOF are records too; the header variables are pairs of their SECTION.
struct DxfRecord {
    std::string type;
    std::string section;          ///< name of the section that it stands in or opens or closes; empty for EOF
    std::string table;            ///< name of the table that it stands in or opens or closes; else empty
    std::vector<DxfGroup> groups; ///< without the pair of code 0
    int line;

    /// The value of the first pair with this code. Throws std::runtime_error if there is none.
    const std::string& value(int code) const;

    /// The values of all pairs with this code, in their order.
    std::vector<std::string> values(int code) const;

    /// The handle that the record defines (code 105 of a DIMSTYLE, code 5 of others); empty if it has none.
    std::string handle() const;
};

/// One variable of the header: its name with the "$", and its pairs.
struct DxfVariable {
    std::string name;
    std::vector<DxfGroup> groups;
};

/// Splits pairs into records. Throws std::runtime_error with the line number where sections and tables do not
/// open and close in turn, or a record stands outside them; a missing end is an error too.
std::vector<DxfRecord> readRecords(const std::vector<DxfGroup>& groups);

/// The variables of the HEADER section in their order. Throws std::runtime_error if there is no such section
/// or it holds a pair that belongs to no variable.
std::vector<DxfVariable> headerVariables(const std::vector<DxfRecord>& records);

} // namespace rasterplan::test
