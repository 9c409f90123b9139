#include "tool/program/Program.h"

#include "base/PathText.h"
#include "tool/TestFiles.h"
#include "tool/program/ProgramStart.h"

#include <system_error>

namespace fs = std::filesystem;

namespace rasterplan_tool {
namespace {

class WorkingFolder {
public:
    explicit WorkingFolder(const fs::path& folder)
        : m_before(fs::current_path()) {
        if (!folder.empty())
            fs::current_path(folder);
    }
    ~WorkingFolder() {
        std::error_code ignored;
        fs::current_path(m_before, ignored);
    }
    WorkingFolder(const WorkingFolder&) = delete;
    WorkingFolder& operator=(const WorkingFolder&) = delete;

private:
    fs::path m_before;
};

std::string withUnixLineEnds(std::string text) {
    std::erase(text, '\r');
    return text;
}

} // namespace

ProgramSetting standingIn(const fs::path& folder) {
    ProgramSetting setting;
    setting.workingFolder = folder;
    return setting;
}

ProgramSetting afterShell(const std::string& commands) {
    ProgramSetting setting;
    setting.shellBefore = commands;
    return setting;
}

ProgramSetting closing(const std::string& redirections) {
    ProgramSetting setting;
    setting.shellBehind = redirections;
    return setting;
}

ProgramResult runProgram(const std::vector<std::string>& arguments, const ProgramSetting& setting) {
    const TestFolder folder;
    const fs::path out = setting.output.empty() ? folder / "out.txt" : setting.output;
    const fs::path err = folder / "err.txt";
    const fs::path executable = fs::absolute(
        setting.executable.empty() ? pathFromUtf8(RASTERPLAN_EXE).make_preferred() : setting.executable);

    const WorkingFolder workingFolder(setting.workingFolder);
    ProgramResult result;
    result.status = startAndWait(executable, arguments, out, err, setting.shellBefore, setting.shellBehind);
    result.out = setting.output.empty() ? withUnixLineEnds(readBytes(out)) : std::string();
    result.err = withUnixLineEnds(readBytes(err));
    return result;
}

} // namespace rasterplan_tool
