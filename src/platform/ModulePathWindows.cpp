#include "platform/ModulePath.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace rasterplan {

std::filesystem::path modulePath() {
    HMODULE module = nullptr;
    if (!GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                                GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                            reinterpret_cast<LPCWSTR>(&modulePath), &module))
        return {};
    wchar_t path[260] = {};
    const DWORD length = GetModuleFileNameW(module, path, 260);
    // A path that fills the buffer has been cut off.
    return length < 260 ? std::filesystem::path(path) : std::filesystem::path();
}

} // namespace rasterplan
