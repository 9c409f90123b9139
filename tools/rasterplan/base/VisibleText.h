#pragma once

#include <ostream>
#include <string>
#include <string_view>

namespace rasterplan_tool {

/// A text (UTF-8) as a terminal may get it: characters that would steer the terminal, break the line or turn
/// the direction of writing, and bytes that are no UTF-8, stand as "\n", "\x1b" or "\u202e". All else is as
/// it was, backslashes included.
std::string visible(std::string_view text);

/// Prints what `visible` returns. Needs no memory.
void printVisible(std::ostream& stream, std::string_view text);

/// Whether a text (UTF-8) holds a control character or another line end of Unicode, so that a line of a
/// drawing cannot hold it.
bool breaksLines(std::string_view text);

} // namespace rasterplan_tool
