#include "drawing/TemplateFile.h"

#include "base/ModuleFolders.h"

#include <algorithm>
#include <system_error>

namespace fs = std::filesystem;

namespace rasterplan_tool {

bool isTemplate(const fs::path& file) {
    const std::vector<fs::path> folders = moduleFolders();
    return std::any_of(folders.begin(), folders.end(), [&file](const fs::path& folder) {
        std::error_code ignored;
        return fs::equivalent(file, folder / "PrepImageAbschnitte_2010.template", ignored);
    });
}

} // namespace rasterplan_tool
