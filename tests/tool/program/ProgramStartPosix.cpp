#include "tool/program/ProgramStart.h"

#include <cstdlib>

#include <sys/wait.h>

namespace rasterplan_tool {
namespace {

std::string quotedForShell(const std::string& text) {
    std::string result = "'";
    for (const char c : text)
        result += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return result + '\'';
}

} // namespace

int startAndWait(const std::filesystem::path& executable, const std::vector<std::string>& arguments,
                 const std::filesystem::path& out, const std::filesystem::path& err,
                 const std::string& shellBefore, const std::string& shellBehind) {
    std::string command = shellBefore + quotedForShell(executable.string());
    for (const std::string& argument : arguments)
        command += ' ' + quotedForShell(argument);
    command += " >" + quotedForShell(out.string()) + " 2>" + quotedForShell(err.string()) + ' ' + shellBehind;
    const int status = std::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace rasterplan_tool
