// A run that is ended from outside, in the midst of writing: the old drawing stays and nothing lies beside
// it.

#ifndef _WIN32

#include "base/PathText.h"
#include "tool/TestFiles.h"
#include "tool/program/ProgramCopy.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <csignal>
#include <thread>

#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace rasterplan_tool {
namespace {

// Started by a program that ignores these signals, as nohup does, or not.
enum class Started { Plainly, IgnoringSignals };

// Fails where the process ends before.
template <typename Condition>
void waitUntil(const Condition& condition, pid_t process) {
    siginfo_t end{};
    while (!condition()) {
        waitid(P_PID, static_cast<id_t>(process), &end, WEXITED | WNOHANG | WNOWAIT);
        ASSERT_EQ(end.si_pid, 0) << "the program has ended";
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

class InterruptedProgram : public testing::TestWithParam<int> {
protected:
    InterruptedProgram() {
        fs::copy_file(testData("grey-17x9.png"), m_folder / "a.png");
        writeFile(m_folder / "SITE.json", siteText({imageText("a.png")}));
        writeFile(m_folder / "out.dxf", "good drawing");
        // A pipe that nobody fills stops the program where it has created its file and reads the template.
        mkfifo(m_copy.templateFile().c_str(), S_IRUSR | S_IWUSR);
    }

    pid_t start(Started how) const {
        std::array<std::string, 4> texts{m_copy.executable().string(), "3d",
                                         utf8FromPath(m_folder / "SITE.json"),
                                         utf8FromPath(m_folder / "out.dxf")};
        std::array<char*, 5> arguments{texts[0].data(), texts[1].data(), texts[2].data(), texts[3].data()};
        std::string libraries = "LD_LIBRARY_PATH=" + m_copy.executable().parent_path().string();
        std::array<char*, 2> environment{libraries.data()};

        const auto before = std::signal(GetParam(), how == Started::Plainly ? SIG_DFL : SIG_IGN);
        pid_t process = 0;
        EXPECT_EQ(
            posix_spawn(&process, texts[0].c_str(), nullptr, nullptr, arguments.data(), environment.data()),
            0);
        std::signal(GetParam(), before);
        return process;
    }

    // Until the drawing in the making lies beside the old one.
    void waitForTheTemporaryFile(pid_t process) const {
        waitUntil([this] { return m_folder.names().size() == 4; }, process);
    }

    // Hands out a template that is none of ours, but has an end.
    void fillThePipe(pid_t process) const {
        int pipe = -1;
        waitUntil([&] { return (pipe = open(m_copy.templateFile().c_str(), O_WRONLY | O_NONBLOCK)) != -1; },
                  process);
        constexpr std::string_view text = "0\nEOF\n";
        EXPECT_EQ(write(pipe, text.data(), text.size()), static_cast<ssize_t>(text.size()));
        close(pipe);
    }

    void expectOldDrawingAlone() const {
        EXPECT_EQ(m_folder.names(), (std::vector<std::string>{"SITE.json", "a.png", "out.dxf"}));
        EXPECT_EQ(readBytes(m_folder / "out.dxf"), "good drawing");
    }

    TestFolder m_folder;
    ProgramCopy m_copy;
};

int endOf(pid_t process) {
    int status = 0;
    waitpid(process, &status, 0);
    return status;
}

} // namespace

TEST_P(InterruptedProgram, RemovesItsFileAndEndsByTheSignal) {
    const pid_t process = start(Started::Plainly);
    waitForTheTemporaryFile(process);
    kill(process, GetParam());
    const int status = endOf(process);
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(WTERMSIG(status), GetParam());
    expectOldDrawingAlone();
}

TEST_P(InterruptedProgram, GoesOnWhereItsCallerIgnoresTheSignal) {
    const pid_t process = start(Started::IgnoringSignals);
    waitForTheTemporaryFile(process);
    kill(process, GetParam());
    fillThePipe(process);
    const int status = endOf(process);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 1);
    expectOldDrawingAlone();
}

INSTANTIATE_TEST_SUITE_P(Signals, InterruptedProgram,
                         testing::Values(SIGHUP, SIGINT, SIGQUIT, SIGPIPE, SIGTERM, SIGXCPU),
                         [](const testing::TestParamInfo<int>& signal) {
                             return sigabbrev_np(signal.param);
                         });

} // namespace rasterplan_tool

#endif
