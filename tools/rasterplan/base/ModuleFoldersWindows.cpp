#include "base/ModuleFolders.h"

#include <RasterPlanWriter/RasterPlanWriter.h>

#include <string>

#include <windows.h>

namespace fs = std::filesystem;

namespace rasterplan_tool {

std::vector<fs::path> moduleFolders() {
    constexpr std::size_t longestPath = 32768;
    HMODULE library = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&fnRasterPlanWriter), &library);
    std::vector<fs::path> folders;
    for (const HMODULE module : {library, HMODULE(nullptr)}) { // the null handle is the program's
        std::wstring path(longestPath, L'\0');
        path.resize(GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size())));
        folders.push_back(fs::path(path).parent_path());
    }
    return folders;
}

} // namespace rasterplan_tool
