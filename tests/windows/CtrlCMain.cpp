// Presses Ctrl-C in the console of another process: PROCESS-ID. A program of its own, because it leaves its
// console.

#include <cstdlib>
#include <cwchar>

#include <windows.h>

int wmain(int count, wchar_t** arguments) {
    if (count != 2)
        return EXIT_FAILURE;
    FreeConsole();
    if (!AttachConsole(std::wcstoul(arguments[1], nullptr, 10)))
        return EXIT_FAILURE;
    SetConsoleCtrlHandler(nullptr, TRUE); // it reaches every program of the console, this one too
    return GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0) ? EXIT_SUCCESS : EXIT_FAILURE;
}
