#include "FileHolder.h"

#include "support/TestFolder.h"

#include <stdexcept>

namespace rasterplan::test {
namespace {

std::wstring eventName(const wchar_t* what) {
    return L"rasterplan-test-" + std::to_wstring(GetCurrentProcessId()) + L'-' + what;
}

} // namespace

FileHolder::FileHolder(const std::filesystem::path& file, DWORD sharing)
    : m_opened(CreateEventW(nullptr, TRUE, FALSE, eventName(L"opened").c_str()))
    , m_release(CreateEventW(nullptr, TRUE, FALSE, eventName(L"release").c_str())) {
    m_process.emplace(
        pathFromUtf8(RASTERPLAN_FILE_HOLDER).make_preferred(),
        std::vector{file.wstring(), std::to_wstring(sharing), eventName(L"opened"), eventName(L"release")});
    // The first of both ends the waiting: the file is open, or the other process has given up.
    const HANDLE handles[] = {m_opened, m_process->handle()};
    if (WaitForMultipleObjects(2, handles, FALSE, 60000) != WAIT_OBJECT_0)
        throw std::runtime_error("another process cannot open the file");
}

FileHolder::~FileHolder() {
    SetEvent(m_release);
    m_process.reset();
    CloseHandle(m_opened);
    CloseHandle(m_release);
}

} // namespace rasterplan::test
