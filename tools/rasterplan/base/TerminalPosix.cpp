#include "base/Terminal.h"

#include <unistd.h>

namespace rasterplan_tool {

bool standardErrorIsTerminal() {
    return isatty(STDERR_FILENO) == 1;
}

} // namespace rasterplan_tool
