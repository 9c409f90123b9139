#include "PathForm.h"

#include "Failure.h"
#include "PathText.h"

namespace fs = std::filesystem;

namespace rasterplan_tool {

std::wstring drawingPath(PathForm form, const std::string& asGiven, const fs::path& picture,
                         const fs::path& drawingFolder) {
    if (form == PathForm::AsGiven) {
        return wideFromPath(pathFromUtf8(asGiven));
    }
    if (form == PathForm::Absolute) {
        return wideFromPath(fs::path(picture).make_preferred());
    }
    const fs::path relative = picture.lexically_relative(drawingFolder);
    if (relative.empty()) {
        throw BadInput(
            "the picture is on another drive than the drawing, so no relative path leads there; use "
            "--paths absolute");
    }
    return wideFromPath(fs::path(relative.generic_u8string()));
}

} // namespace rasterplan_tool
