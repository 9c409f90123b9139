// Preloaded into a program it lets one allocation of main fail, or all from one on: those of `new`, of the C
// library and of every other library. The environment says which:
//   RASTERPLAN_FAIL_NUMBER  the number of the allocation, from 1; 0 for none
//   RASTERPLAN_FAIL_ALL     set: all from that one on
//   RASTERPLAN_FAIL_REPORT  the file to write, after main has returned, how many allocations main asked for
//   and
//                           how many blocks it left that were not there before

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>

#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

// The allocator below the public names; those are taken here.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* memory);
}

namespace {

using Main = int (*)(int, char**, char**);

bool isCounting = false;
bool failsAll = false;
long failing = 0;
std::atomic<long> asked = 0; // by any thread
std::atomic<long> living = 0;
Main realMain = nullptr;

bool mustFail() noexcept {
    if (!isCounting)
        return false;
    const long number = ++asked;
    if (failing == 0 || number < failing || (number > failing && !failsAll))
        return false;
    errno = ENOMEM;
    return true;
}

void* counted(void* memory) noexcept {
    living += memory ? 1 : 0;
    return memory;
}

void report(long left) noexcept {
    const char* const path = std::getenv("RASTERPLAN_FAIL_REPORT");
    const int file = path ? open(path, O_WRONLY | O_CREAT | O_TRUNC, 0600) : -1;
    if (file == -1)
        return;
    char text[64];
    const int length = std::snprintf(text, sizeof text, "%ld %ld\n", asked.load(), left);
    if (write(file, text, static_cast<std::size_t>(length)) != length)
        _exit(99); // without a report the driver complains as well
    close(file);
}

int countedMain(int count, char** arguments, char** environment) {
    const char* const number = std::getenv("RASTERPLAN_FAIL_NUMBER");
    failing = number ? std::atol(number) : 0;
    failsAll = std::getenv("RASTERPLAN_FAIL_ALL") != nullptr;
    const long before = living;
    isCounting = true;
    const int status = realMain(count, arguments, environment);
    isCounting = false;
    report(living - before);
    return status;
}

} // namespace

extern "C" {

void* malloc(std::size_t size) {
    return mustFail() ? nullptr : counted(__libc_malloc(size));
}

void* calloc(std::size_t count, std::size_t size) {
    return mustFail() ? nullptr : counted(__libc_calloc(count, size));
}

void* realloc(void* memory, std::size_t size) {
    if (mustFail())
        return nullptr;
    void* const moved = __libc_realloc(memory, size);
    living += (moved && !memory ? 1 : 0) - (memory && !moved && size == 0 ? 1 : 0);
    return moved;
}

void* memalign(std::size_t alignment, std::size_t size) {
    return mustFail() ? nullptr : counted(__libc_memalign(alignment, size));
}

void* aligned_alloc(std::size_t alignment, std::size_t size) {
    return memalign(alignment, size);
}

int posix_memalign(void** memory, std::size_t alignment, std::size_t size) {
    *memory = memalign(alignment, size);
    return *memory ? 0 : ENOMEM;
}

void free(void* memory) {
    living -= memory ? 1 : 0;
    __libc_free(memory);
}

// The C library's start of a program: from main on, and not before, allocations fail.
int __libc_start_main(Main main, int count, char** arguments, void (*initialize)(), void (*finish)(),
                      void (*finishLoader)(), void* stackEnd) {
    using Start = int (*)(Main, int, char**, void (*)(), void (*)(), void (*)(), void*);
    const auto start = reinterpret_cast<Start>(dlsym(RTLD_NEXT, "__libc_start_main"));
    realMain = main;
    return start(countedMain, count, arguments, initialize, finish, finishLoader, stackEnd);
}

} // extern "C"
