#pragma once

#include "site/Manifest.h"

#include <filesystem>
#include <string>
#include <vector>

namespace rasterplan_tool {

/// How the drawing names its pictures.
enum class PathForm {
    Absolute, ///< By absolute path: CAD programs show the pictures at once, wherever the drawing lies.
    Relative, ///< Relative to the drawing's folder: drawing and pictures can be moved together.
    AsGiven   ///< By the text of SITE.json.
};

/// The text by which the drawing names a picture.
///
/// `asGiven` is the text of SITE.json, `picture` the file it names, `drawingFolder` the folder of the
/// drawing; both paths are absolute, with the links among their folders followed.
/// Relative texts have '/' between folders on every system, so that they do not depend on who wrote
/// the drawing. Throws BadInput where the picture cannot be reached from the folder, and where the text is no
/// Unicode or holds a control character, which no line of a drawing can hold.
std::wstring drawingPath(PathForm form, const std::string& asGiven, const std::filesystem::path& picture,
                         const std::filesystem::path& drawingFolder);

/// The texts by which the drawing names the pictures of a site, one per image. Throws BadInput as drawingPath
/// does, with the image's place in SITE.json.
std::vector<std::wstring> drawingPaths(const Manifest& manifest, PathForm form,
                                       const std::filesystem::path& drawingFolder);

} // namespace rasterplan_tool
