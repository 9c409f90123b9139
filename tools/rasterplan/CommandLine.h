#pragma once

#include "commands/CheckDrawing.h"
#include "commands/ShowCorners.h"
#include "commands/ShowPlane.h"
#include "commands/ViewDrawing.h"
#include "commands/WriteDrawing.h"

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace rasterplan_tool {

/// What the program is to do.
using Command = std::variant<WriteDrawing, ShowPlane, ShowCorners, ViewDrawing, CheckDrawing>;

/// Either a command or a text that answers it (help, version).
struct CommandLineResult {
    std::optional<Command> command;
    std::string answer;
    Verbosity verbosity = Verbosity::Normal;
    bool isStrict = false; ///< Warnings make the run fail.
};

/// Understands the arguments (UTF-8, without the program's name). Throws BadInput.
CommandLineResult parseCommandLine(const std::vector<std::string>& arguments);

} // namespace rasterplan_tool
