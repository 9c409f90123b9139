#pragma once

#include "reader/DxfGroups.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace rasterplan_tool {

/// One record of a DXF text, from its code 0 to the next: its type, where it stands, and its further pairs.
/// SECTION, ENDSEC, TABLE, ENDTAB and EOF are records too; the header variables are pairs of their SECTION.
struct DxfRecord {
    std::string type;
    std::string section;          ///< Name of the section that it stands in, opens or closes; else empty.
    std::string table;            ///< Name of the table that it stands in, opens or closes; else empty.
    std::vector<DxfGroup> groups; ///< Without the pair of code 0 and without comments (code 999).
    std::size_t line;

    /// The value of the first pair with this code; empty if there is none.
    const std::string& value(int code) const;

    /// The values of all pairs with this code, in their order.
    std::vector<std::string> values(int code) const;

    /// The number in the first pair with this code; nothing if there is none or it holds no finite number.
    std::optional<double> number(int code) const;

    /// The handle that the record defines (code 105 of a DIMSTYLE, code 5 of others) as it is written,
    /// without blanks around it; empty if it has none. handleNumber tells whether two of them mean the same.
    std::string handle() const;
};

/// One variable of the header: its name with the "$", and its pairs.
struct DxfVariable {
    std::string name;
    std::vector<DxfGroup> groups;
};

/// A drawing as far as it can be read.
struct DxfDrawing {
    std::vector<DxfRecord> records;
    std::vector<DxfFault> faults; ///< In the order of their lines; empty when all has been read.

    /// Whether the text was read to its EOF.
    bool isWhole() const;

    /// The records that were read to their own ends: all, but the last one where the text was not read to
    /// EOF.
    std::span<const DxfRecord> wholeRecords() const;
};

/// Splits pairs into records. Adds what is wrong to `faults`: Misplaced, or CutShort at the last pair where
/// no EOF comes and `faults` does not say yet why. Comments before the first record are passed over.
std::vector<DxfRecord> readRecords(std::vector<DxfGroup> groups, std::vector<DxfFault>& faults);

/// Reads a text DXF of any version and writer: readGroups, then readRecords.
DxfDrawing readDrawing(std::string_view text);

/// The variables of the HEADER section in their order; none if there is no such section.
std::vector<DxfVariable> headerVariables(const std::vector<DxfRecord>& records);

} // namespace rasterplan_tool
