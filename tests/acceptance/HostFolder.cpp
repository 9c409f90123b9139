#include "HostFolder.h"

#include "support/WideText.h"

#include <cstdlib>

#ifndef _WIN32
#include <sys/wait.h>
#endif

namespace fs = std::filesystem;

namespace rasterplan::test {
namespace {

constexpr const char* templateName = "PrepImageAbschnitte_2010.template";

std::string withUnixLineEnds(std::string text) {
    std::erase(text, '\r');
    return text;
}

int runShell(const std::string& command) {
#ifdef _WIN32
    return _wsystem(wideTextOf(command).c_str());
#else
    const int status = std::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
#endif
}

} // namespace

HostFolder::HostFolder(std::optional<std::string_view> templateText) {
    const fs::path host = pathFromUtf8(RASTERPLAN_EXPORT_HOST);
    fs::copy_file(host, m_folder.path() / host.filename());
    if (const std::string_view library = RASTERPLAN_LIBRARY; !library.empty())
        fs::copy_file(pathFromUtf8(library), m_folder / RASTERPLAN_LIBRARY_NAME);
    if (templateText)
        writeBytes(templateFile(), *templateText);
}

fs::path HostFolder::templateFile() const {
    return m_folder / templateName;
}

HostRun HostFolder::play(std::string_view scene, const std::string& before) const {
    const std::string host = utf8FromPath(pathFromUtf8(RASTERPLAN_EXPORT_HOST).filename());
#ifdef _WIN32
    return playBy(before + ' ' + host, scene);
#else
    return playBy(before + " ./" + host, scene);
#endif
}

HostRun HostFolder::playBy(const std::string& program, std::string_view scene) const {
    writeBytes(m_folder / "scene.txt", scene);
    const std::string folder = '"' + utf8FromPath(m_folder.path()) + '"';
#ifdef _WIN32
    std::string command = "cd /d " + folder;
#else
    std::string command = "cd " + folder;
#endif
    command += " && " + program + " scene.txt >out.txt 2>err.txt";
    HostRun run;
    run.status = runShell(command);
    run.out = withUnixLineEnds(readBytes(m_folder / "out.txt"));
    run.err = withUnixLineEnds(readBytes(m_folder / "err.txt"));
    return run;
}

std::string deliveredTemplate() {
    return readBytes(pathFromUtf8(RASTERPLAN_TEMPLATE_FILE));
}

} // namespace rasterplan::test
