#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include <windows.h>

namespace rasterplan::test {

/// A running program in a console of its own, which nobody sees. The console is closed, and the program ended
/// with it, at the end of this object's life.
class ConsoleProcess {
public:
    /// Starts it with these arguments, which must hold no quotation mark, and with this standard output, a
    /// handle that can be inherited. Throws std::runtime_error when that fails.
    ConsoleProcess(const std::filesystem::path& program, const std::vector<std::wstring>& arguments,
                   HANDLE output);
    ~ConsoleProcess();
    ConsoleProcess(const ConsoleProcess&) = delete;
    ConsoleProcess& operator=(const ConsoleProcess&) = delete;

    /// Presses Ctrl-C in its console. Throws std::runtime_error when that fails.
    void pressCtrlC() const;

    /// Its exit status once it has ended; none where so many milliseconds pass before.
    std::optional<DWORD> statusWithin(DWORD milliseconds) const;

private:
    HANDLE m_keyboardReader = nullptr;
    HANDLE m_keyboard = nullptr;
    HANDLE m_screen = nullptr;
    HANDLE m_screenWriter = nullptr;
    HPCON m_console = nullptr;
    HANDLE m_process = nullptr;
};

} // namespace rasterplan::test
