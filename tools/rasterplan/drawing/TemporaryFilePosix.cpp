#include "drawing/TemporaryFile.h"

#include <array>
#include <climits>
#include <csignal>
#include <utility>

#include <unistd.h>

namespace rasterplan_tool {
namespace {

constexpr std::array<int, 6> endingSignals{SIGHUP, SIGINT, SIGQUIT, SIGPIPE, SIGTERM, SIGXCPU};

// What a signal handler needs lies still in plain memory.
std::array<char, PATH_MAX> pathToRemove;
std::array<struct sigaction, endingSignals.size()> dispositionsBefore;

// The handler has been taken back when it is entered, so that the signal ends the program in its own way
// as soon as it returns.
extern "C" void removeAndEnd(int signal) {
    unlink(pathToRemove.data());
    raise(signal);
}

} // namespace

TemporaryFile::TemporaryFile(std::filesystem::path path)
    : m_path(std::move(path)) {
    pathToRemove.fill('\0');
    m_path.native().copy(pathToRemove.data(), pathToRemove.size() - 1);
    if (m_path.native().size() >= pathToRemove.size())
        pathToRemove.front() = '\0'; // no file can have such a path
    struct sigaction action {};
    action.sa_handler = removeAndEnd;
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    for (std::size_t i = 0; i < endingSignals.size(); ++i) {
        sigaction(endingSignals[i], nullptr, &dispositionsBefore[i]);
        if (dispositionsBefore[i].sa_handler != SIG_IGN) // as nohup has it
            sigaction(endingSignals[i], &action, nullptr);
    }
}

TemporaryFile::~TemporaryFile() {
    unlink(m_path.c_str());
    for (std::size_t i = 0; i < endingSignals.size(); ++i)
        sigaction(endingSignals[i], &dispositionsBefore[i], nullptr);
}

} // namespace rasterplan_tool
