#include "base/Files.h"

#include "base/Resources.h"

#include <system_error>

namespace fs = std::filesystem;

namespace rasterplan_tool {

bool isFile(const fs::path& path) {
    std::error_code error;
    const bool isThere = fs::is_regular_file(path, error);
    throwIfExhausted(error);
    return isThere;
}

bool isSameFile(const fs::path& a, const fs::path& b) {
    std::error_code ignored;
    return a == b || fs::equivalent(a, b, ignored);
}

} // namespace rasterplan_tool
