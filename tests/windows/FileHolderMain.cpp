// Holds a file open: FILE SHARING OPENED RELEASE, the last two being names of events.

#include <cstdlib>
#include <cwchar>

#include <windows.h>

int wmain(int count, wchar_t** arguments) {
    if (count != 5)
        return EXIT_FAILURE;
    const HANDLE opened = OpenEventW(EVENT_MODIFY_STATE, FALSE, arguments[3]);
    const HANDLE release = OpenEventW(SYNCHRONIZE, FALSE, arguments[4]);
    const DWORD sharing = std::wcstoul(arguments[2], nullptr, 10);
    const HANDLE file = CreateFileW(arguments[1], GENERIC_READ, sharing, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE || !SetEvent(opened))
        return EXIT_FAILURE;
    WaitForSingleObject(release, 60000);
    CloseHandle(file);
    return EXIT_SUCCESS;
}
