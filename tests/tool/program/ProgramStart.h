#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace rasterplan_tool {

/// Starts a program with these arguments (UTF-8) in the working folder, its two outputs going to files, and
/// waits for its end. `shellBefore` are commands of a POSIX shell to run before, `shellBehind` redirections
/// that come last; Windows has neither. Returns
/// the exit status, -1 when the program was killed. Throws std::exception when it cannot be started.
int startAndWait(const std::filesystem::path& executable, const std::vector<std::string>& arguments,
                 const std::filesystem::path& out, const std::filesystem::path& err,
                 const std::string& shellBefore, const std::string& shellBehind);

} // namespace rasterplan_tool
