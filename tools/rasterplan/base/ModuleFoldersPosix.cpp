#include "base/ModuleFolders.h"

#include "base/Resources.h"

#include <RasterPlanWriter/RasterPlanWriter.h>

#include <dlfcn.h>

namespace fs = std::filesystem;

namespace rasterplan_tool {

std::vector<fs::path> moduleFolders() {
    std::vector<fs::path> files{"/proc/self/exe"};
    Dl_info module{};
    if (dladdr(reinterpret_cast<const void*>(&fnRasterPlanWriter), &module) != 0 &&
        module.dli_fname != nullptr)
        files.emplace_back(module.dli_fname);
    std::vector<fs::path> folders;
    for (const fs::path& file : files) {
        std::error_code error;
        const fs::path real = fs::canonical(file, error);
        throwIfExhausted(error);
        folders.push_back(file.parent_path());
        folders.push_back(real.parent_path());
    }
    return folders;
}

} // namespace rasterplan_tool
