#pragma once

#include "reader/DxfRecords.h"

#include <string>
#include <string_view>
#include <vector>

namespace rasterplan::test {

using rasterplan_tool::DxfGroup;
using rasterplan_tool::DxfRecord;
using rasterplan_tool::DxfVariable;
using rasterplan_tool::headerVariables;

/// As readGroups, but throws std::runtime_error with the line number where a reader would have to be lenient:
/// at every fault, a byte order mark, line ends of both kinds, a carriage return inside a line, and a code
/// with blanks behind it.
std::vector<DxfGroup> strictGroups(std::string_view text, std::size_t firstLine = 1);

/// As readRecords, but throws std::runtime_error with the line number at every fault, a missing EOF included,
/// and at a record with two handles.
std::vector<DxfRecord> strictRecords(std::vector<DxfGroup> groups);

/// Whether a value of this code is the handle of another record (320 to 369, 390 to 399, 480, 481, 1005).
bool isPointerCode(int code);

/// Whether the value of `group` has the form that its code demands: a decimal integer, a real number, 0 or 1,
/// upper-case hexadecimal digits without leading zeros, or any text.
bool valueFitsCode(const DxfGroup& group);

/// The number that a handle's text means. Throws std::runtime_error if it is not one to eight upper-case
/// hexadecimal digits without leading zeros.
unsigned long strictHandle(std::string_view text);

} // namespace rasterplan::test
