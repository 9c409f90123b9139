#include "base/Terminal.h"

#include <windows.h>

namespace rasterplan_tool {

bool standardErrorIsTerminal() {
    DWORD ignored = 0; // the null device counts as a terminal elsewhere
    return GetConsoleMode(GetStdHandle(STD_ERROR_HANDLE), &ignored) != FALSE;
}

} // namespace rasterplan_tool
