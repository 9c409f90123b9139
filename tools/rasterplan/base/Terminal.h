#pragma once

namespace rasterplan_tool {

/// Whether the standard error stream of the program is a terminal.
bool standardErrorIsTerminal();

} // namespace rasterplan_tool
