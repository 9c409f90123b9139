#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include <windows.h>

namespace rasterplan::test {

/// A running program. It is waited for at the end of this object's life.
class Process {
public:
    /// Starts it with these arguments, which must hold no quotation mark. Throws std::runtime_error when that
    /// fails.
    Process(const std::filesystem::path& program, const std::vector<std::wstring>& arguments);
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    HANDLE handle() const { return m_process; }

    /// Waits for its end and returns its status. Throws std::runtime_error when a minute passes before.
    DWORD status() const;

private:
    HANDLE m_process;
};

} // namespace rasterplan::test
