#include "drawing/PathForm.h"

#include "base/Failure.h"
#include "base/PathText.h"
#include "base/VisibleText.h"

namespace fs = std::filesystem;

namespace rasterplan_tool {
namespace {

fs::path writtenPath(PathForm form, const std::string& asGiven, const fs::path& picture,
                     const fs::path& drawingFolder) {
    if (form == PathForm::AsGiven)
        return pathFromUtf8(asGiven);
    if (form == PathForm::Absolute)
        return fs::path(picture).make_preferred();
    const fs::path relative = picture.lexically_relative(drawingFolder);
    if (relative.empty()) {
        throw BadInput(
            "the picture is on another drive than the drawing, so no relative path leads there; use "
            "--paths absolute");
    }
    return {relative.generic_u8string()};
}

} // namespace

std::wstring drawingPath(PathForm form, const std::string& asGiven, const fs::path& picture,
                         const fs::path& drawingFolder) {
    const fs::path written = writtenPath(form, asGiven, picture, drawingFolder);
    // A folder's name is not in SITE.json, so it has not been looked at before.
    if (breaksLines(utf8FromPath(written))) {
        throw BadInput("the path " + quoted(written) +
                       " holds a control character, which would break the drawing's lines; rename the "
                       "folder or the file");
    }
    return wideFromPath(written);
}

std::vector<std::wstring> drawingPaths(const Manifest& manifest, PathForm form,
                                       const fs::path& drawingFolder) {
    std::vector<std::wstring> paths;
    for (std::size_t i = 0; i < manifest.images.size(); ++i) {
        try {
            paths.push_back(
                drawingPath(form, manifest.images[i].path, manifest.pictureFile(i), drawingFolder));
        } catch (const BadInput& failure) {
            throw BadInput(manifest.where(i) + ": " + failure.what());
        }
    }
    return paths;
}

} // namespace rasterplan_tool
