// Runs a program and prints what it cost as a whole: CPU seconds in user and in system mode, and the peak of
// its resident memory in KiB. A program of its own, because a process inherits the peak of the one that
// starts it, and that of a Python interpreter hides what a small program takes.

#include <cstdio>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

double seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fputs("usage: measure PROGRAM [ARGUMENT...]\n", stderr);
        return 2;
    }
    const pid_t child = fork();
    if (child == 0) {
        execvp(argv[1], argv + 1);
        std::perror(argv[1]);
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    if (child < 0 || wait4(child, &status, 0, &usage) != child || !WIFEXITED(status))
        return 1;
    std::printf("user %.6f\nsystem %.6f\npeak %ld\n", seconds(usage.ru_utime), seconds(usage.ru_stime),
                usage.ru_maxrss);
    return WEXITSTATUS(status);
}
