#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace rasterplan_tool {

/// One pair of lines of a DXF text: the group code, its value without the line end, and the number of the
/// code's line.
struct DxfGroup {
    int code;
    std::string value;
    std::size_t line;
};

/// What a text holds that no DXF has.
enum class DxfFaultKind {
    NoCode,    ///< A line that should be a group code is none; the text is not read further.
    CutShort,  ///< The text ends before EOF.
    Misplaced, ///< Sections and tables do not open and close in turn, or a record stands outside them.
    BehindEnd  ///< Text behind EOF, which is not read.
};

/// Where a text is no DXF, and why.
struct DxfFault {
    DxfFaultKind kind;
    std::size_t line;
    std::string text; ///< In words; may hold what stands in the drawing, control characters too.
};

/// Reads the pairs of `text`, a drawing or a whole number of its pairs, whose first line has the number
/// `firstLine`, as far as there are any. Every writer's lines are taken: with LF or CR LF at their ends,
/// blanks around codes, and a byte order mark before the first. Adds what is wrong to `faults`, NoCode,
/// CutShort for a code without value, or BehindEnd; a missing EOF is the caller's to judge.
std::vector<DxfGroup> readGroups(std::string_view text, std::vector<DxfFault>& faults,
                                 std::size_t firstLine = 1);

/// A text without the blanks and tabs around it.
std::string_view trimmed(std::string_view text);

/// The number that a handle's text means: up to 16 hexadecimal digits in either case, blanks around them;
/// nothing for any other text. 0 is the handle of no record.
std::optional<std::uint64_t> handleNumber(std::string_view text);

/// The finite number that a value means, blanks around it; nothing for any other text. Does not depend on the
/// locale.
std::optional<double> realNumber(std::string_view text);

} // namespace rasterplan_tool
