#include "drawing/ReplacedFile.h"

namespace fs = std::filesystem;

namespace rasterplan_tool {

void takeOver(const fs::path& replaced, const fs::path& file) noexcept {
    std::error_code ignored;
    const fs::file_status before = fs::status(replaced, ignored);
    if (fs::exists(before))
        fs::permissions(file, before.permissions(), ignored);
}

} // namespace rasterplan_tool
