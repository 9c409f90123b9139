#include "Process.h"

#include <stdexcept>

namespace rasterplan::test {

Process::Process(const std::filesystem::path& program, const std::vector<std::wstring>& arguments) {
    std::wstring command = L'"' + program.wstring() + L'"';
    for (const std::wstring& argument : arguments)
        command += L" \"" + argument + L'"';
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(program.c_str(), command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &startup, &process))
        throw std::runtime_error("cannot start a program: error " + std::to_string(GetLastError()));
    CloseHandle(process.hThread);
    m_process = process.hProcess;
}

Process::~Process() {
    WaitForSingleObject(m_process, INFINITE);
    CloseHandle(m_process);
}

DWORD Process::status() const {
    DWORD status = 0;
    if (WaitForSingleObject(m_process, 60000) != WAIT_OBJECT_0 || !GetExitCodeProcess(m_process, &status))
        throw std::runtime_error("a program does not end");
    return status;
}

} // namespace rasterplan::test
