#include "drawing/TemporaryFile.h"

#include <array>
#include <utility>

#include <windows.h>

namespace rasterplan_tool {
namespace {

// The handler runs in a thread of its own, beside the life of every object.
constexpr std::size_t longestPath = 32768;
std::array<wchar_t, longestPath> pathToRemove;

BOOL WINAPI removeAndEnd(DWORD) {
    constexpr DWORD pauseInMilliseconds = 5;
    // As long as the drawing is being written it cannot be removed.
    while (DeleteFileW(pathToRemove.data()) == FALSE && GetLastError() == ERROR_SHARING_VIOLATION)
        Sleep(pauseInMilliseconds);
    // As the system would end it, which first waits until somebody reads what is still to be printed.
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(STATUS_CONTROL_C_EXIT));
    return TRUE;
}

} // namespace

TemporaryFile::TemporaryFile(std::filesystem::path path)
    : m_path(std::move(path)) {
    pathToRemove.fill(L'\0');
    if (m_path.native().size() < pathToRemove.size()) // no file can have a longer path
        m_path.native().copy(pathToRemove.data(), pathToRemove.size());
    SetConsoleCtrlHandler(removeAndEnd, TRUE);
}

TemporaryFile::~TemporaryFile() {
    DeleteFileW(m_path.c_str());
    SetConsoleCtrlHandler(removeAndEnd, FALSE);
}

} // namespace rasterplan_tool
