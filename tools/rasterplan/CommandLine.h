#pragma once

#include "PathForm.h"
#include "Plane.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace rasterplan_tool {

/// What the program is to do.
enum class Command { Write3d, Write2d, ShowPlane };

/// The command line, understood.
struct CommandLine {
    Command command = Command::Write3d;
    std::filesystem::path site;
    std::filesystem::path output;            ///< Of the two that write.
    PathForm pathForm = PathForm::Absolute;  ///< Of the two that write.
    std::optional<Plane> plane;              ///< Of Write2d: the user's plane; otherwise the proposed one.
    std::optional<double> angleTolerance;    ///< Of Write2d, in degrees.
    std::optional<double> distanceTolerance; ///< Of Write2d, in drawing units.
    bool json = false;                       ///< Of ShowPlane.
};

/// Either a command line or a text that answers it (help, version).
struct CommandLineResult {
    std::optional<CommandLine> commandLine;
    std::string answer;
};

/// Understands the arguments (UTF-8, without the program's name). Throws BadInput.
CommandLineResult parseCommandLine(const std::vector<std::string>& arguments);

} // namespace rasterplan_tool
