// Without the command shell, which has quoting rules of its own.

#include "tool/program/ProgramStart.h"

#include "base/PathText.h"

#include <memory>
#include <system_error>

#include <windows.h>

namespace fs = std::filesystem;

namespace rasterplan_tool {
namespace {

[[noreturn]] void failWithSystemError(const char* what) {
    throw std::system_error(static_cast<int>(GetLastError()), std::system_category(), what);
}

struct CloseSystemHandle {
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using SystemHandle = std::unique_ptr<void, CloseSystemHandle>;

SystemHandle createInheritedFile(const fs::path& file) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    const HANDLE handle = CreateFileW(file.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                      &inherited, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE)
        failWithSystemError("CreateFileW");
    return SystemHandle(handle);
}

// Backslashes count as such unless a quotation mark follows them.
std::wstring quotedArgument(const std::wstring& text) {
    std::wstring result = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t c : text) {
        if (c == L'"')
            result.append(backslashes + 1, L'\\');
        backslashes = c == L'\\' ? backslashes + 1 : 0;
        result += c;
    }
    return result.append(backslashes, L'\\') + L'"';
}

} // namespace

int startAndWait(const fs::path& executable, const std::vector<std::string>& arguments, const fs::path& out,
                 const fs::path& err, const std::string&, const std::string&) {
    std::wstring commandLine = quotedArgument(executable.wstring());
    for (const std::string& argument : arguments)
        commandLine += L' ' + quotedArgument(wideFromPath(pathFromUtf8(argument)));
    const SystemHandle outFile = createInheritedFile(out);
    const SystemHandle errFile = createInheritedFile(err);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = outFile.get();
    startup.hStdError = errFile.get();
    PROCESS_INFORMATION information{};
    if (CreateProcessW(executable.c_str(), commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                       &startup, &information) == FALSE)
        failWithSystemError("CreateProcessW");
    const SystemHandle process(information.hProcess);
    const SystemHandle thread(information.hThread);
    DWORD status = 0;
    if (WaitForSingleObject(process.get(), INFINITE) != WAIT_OBJECT_0 ||
        GetExitCodeProcess(process.get(), &status) == FALSE)
        failWithSystemError("WaitForSingleObject");
    return static_cast<int>(status);
}

} // namespace rasterplan_tool
