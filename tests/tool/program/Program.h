#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace rasterplan_tool {

/// What one run of the program left.
struct ProgramResult {
    int status = -1;
    std::string out;
    std::string err;
};

/// How to run the program.
struct ProgramSetting {
    std::filesystem::path executable;    ///< Empty for the one that was built.
    std::filesystem::path workingFolder; ///< Where to stand; empty for where the tests stand.
    std::filesystem::path output;        ///< Where its results go; empty for the result's `out`.
    std::string shellBefore;             ///< Commands of a POSIX shell to run before, with ';' at the end.
    std::string shellBehind;             ///< Redirections of a POSIX shell that come last.
};

/// To stand in a folder.
ProgramSetting standingIn(const std::filesystem::path& folder);

/// To run after these commands of a POSIX shell.
ProgramSetting afterShell(const std::string& commands);

/// To run with these redirections of a POSIX shell.
ProgramSetting closing(const std::string& redirections);

/// Runs the program with these arguments (UTF-8) and waits for its end. The result's texts have '\n' at line
/// ends.
ProgramResult runProgram(const std::vector<std::string>& arguments, const ProgramSetting& setting = {});

} // namespace rasterplan_tool
