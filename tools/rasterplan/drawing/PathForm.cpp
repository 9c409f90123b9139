#include "drawing/PathForm.h"

#include "base/Failure.h"
#include "base/PathText.h"
#include "base/Resources.h"
#include "base/VisibleText.h"

#include <system_error>

namespace fs = std::filesystem;

namespace rasterplan_tool {
namespace {

fs::path writtenPath(PathForm form, const std::string& asGiven, const fs::path& picture,
                     const fs::path& drawingFolder) {
    if (form == PathForm::AsGiven)
        return pathFromUtf8(asGiven);
    if (form == PathForm::Collected)
        return picture.filename();
    const fs::path relative = picture.lexically_relative(drawingFolder); // empty on another drive
    if (form == PathForm::Absolute || relative.empty())
        return fs::path(picture).make_preferred();
    return {relative.generic_u8string()};
}

bool isThere(const fs::path& path) {
    std::error_code error;
    const bool found = fs::exists(path, error);
    throwIfExhausted(error);
    return found;
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

std::vector<std::wstring> drawingPaths(const Site& site, PathForm form, const fs::path& drawingFolder) {
    const Manifest& manifest = site.manifest;
    std::vector<std::wstring> paths;
    for (std::size_t i = 0; i < manifest.images.size(); ++i) {
        try {
            paths.push_back(drawingPath(form, manifest.images[i].path, site.files[i].file, drawingFolder));
        } catch (const BadInput& failure) {
            throw BadInput(manifest.where(i) + ": " + failure.what());
        }
    }
    return paths;
}

void checkPathsAsGiven(const Manifest& manifest, const fs::path& drawingFolder, Notices& notices) {
    for (std::size_t i = 0; i < manifest.images.size(); ++i) {
        const fs::path path = pathFromUtf8(manifest.images[i].path);
        if (isThere(drawingFolder / path) || isThere(drawingFolder / path.filename()) ||
            !isThere(manifest.pictureFile(i)))
            continue;
        const std::string advice = "; leave out --paths as-given, or write the drawing beside SITE.json";
        notices.warn(
            manifest.subject(i),
            "the paths lead to no pictures from the drawing's folder, so CAD programs will not find them" +
                advice,
            "from the drawing's folder " + quoted(drawingFolder) +
                " this path leads to no picture, so CAD programs will not find it" + advice);
    }
}

} // namespace rasterplan_tool
