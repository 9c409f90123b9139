#include "ConsoleProcess.h"

#include "Process.h"
#include "support/TestFolder.h"

#include <stdexcept>

namespace rasterplan::test {
namespace {

void demand(bool holds, const char* what) {
    if (!holds)
        throw std::runtime_error(std::string(what) + ": error " + std::to_string(GetLastError()));
}

} // namespace

ConsoleProcess::ConsoleProcess(const std::filesystem::path& program,
                               const std::vector<std::wstring>& arguments, HANDLE output) {
    demand(CreatePipe(&m_keyboardReader, &m_keyboard, nullptr, 0) &&
               CreatePipe(&m_screen, &m_screenWriter, nullptr, 0),
           "cannot make a pipe");
    demand(SUCCEEDED(CreatePseudoConsole({80, 25}, m_keyboardReader, m_screenWriter, 0, &m_console)),
           "cannot make a console");

    SIZE_T size = 0;
    InitializeProcThreadAttributeList(nullptr, 1, 0, &size);
    std::vector<char> attributes(size);
    STARTUPINFOEXW startup{};
    startup.StartupInfo.cb = sizeof startup;
    startup.StartupInfo.dwFlags = STARTF_USESTDHANDLES;
    startup.StartupInfo.hStdOutput = output;
    startup.lpAttributeList = reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(attributes.data());
    demand(InitializeProcThreadAttributeList(startup.lpAttributeList, 1, 0, &size) &&
               UpdateProcThreadAttribute(startup.lpAttributeList, 0, PROC_THREAD_ATTRIBUTE_PSEUDOCONSOLE,
                                         m_console, sizeof m_console, nullptr, nullptr),
           "cannot choose a console");

    std::wstring command = L'"' + program.wstring() + L'"';
    for (const std::wstring& argument : arguments)
        command += L" \"" + argument + L'"';
    PROCESS_INFORMATION process{};
    demand(CreateProcessW(program.c_str(), command.data(), nullptr, nullptr, TRUE,
                          EXTENDED_STARTUPINFO_PRESENT, nullptr, nullptr, &startup.StartupInfo, &process),
           "cannot start a program");
    CloseHandle(process.hThread);
    m_process = process.hProcess;
}

ConsoleProcess::~ConsoleProcess() {
    CloseHandle(m_screen); // otherwise the console waits until all is read
    ClosePseudoConsole(m_console);
    WaitForSingleObject(m_process, INFINITE);
    for (const HANDLE handle : {m_keyboardReader, m_keyboard, m_screenWriter, m_process})
        CloseHandle(handle);
}

void ConsoleProcess::pressCtrlC() const {
    const Process presser(pathFromUtf8(RASTERPLAN_CTRL_C).make_preferred(),
                          {std::to_wstring(GetProcessId(m_process))});
    demand(presser.status() == EXIT_SUCCESS, "cannot press Ctrl-C");
}

std::optional<DWORD> ConsoleProcess::statusWithin(DWORD milliseconds) const {
    DWORD status = 0;
    if (WaitForSingleObject(m_process, milliseconds) != WAIT_OBJECT_0)
        return std::nullopt;
    demand(GetExitCodeProcess(m_process, &status), "cannot ask for a status");
    return status;
}

} // namespace rasterplan::test
