#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace rasterplan::test {

/// One pair of lines of a DXF text: the group code and its value, and the number of the code's line.
struct DxfGroup {
    int code;
    std::string value;
    int line;
};

/// Reads `text`, a drawing or a whole number of its pairs, whose first line has the number `firstLine`.
/// Throws std::runtime_error with the line number where the text is not strictly pairs: a code that is no
/// decimal number from -5 to 1071, a code without value, a carriage return inside a line, line ends of both
/// kinds, or anything but empty lines behind EOF. A missing EOF is the caller's to judge.
std::vector<DxfGroup> readGroups(std::string_view text, int firstLine = 1);

/// Whether a value of this code is the handle of another record (320 to 369, 390 to 399, 480, 481, 1005).
bool isPointerCode(int code);

/// Whether the value of `group` has the form that its code demands: a decimal integer, a real number, 0 or 1,
/// upper-case hexadecimal digits without leading zeros, or any text.
bool valueFitsCode(const DxfGroup& group);

/// The number that a handle's text means. Throws std::runtime_error if it is not one to eight upper-case
/// hexadecimal digits without leading zeros.
unsigned long handleNumber(std::string_view text);

} // namespace rasterplan::test
