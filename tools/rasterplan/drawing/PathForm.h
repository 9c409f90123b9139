#pragma once

#include "base/Notices.h"
#include "site/Site.h"

#include <filesystem>
#include <string>
#include <vector>

namespace rasterplan_tool {

/// How the drawing names its pictures.
enum class PathForm {
    Relative, ///< Relative to the drawing's folder: drawing and pictures can be moved together.
    Absolute, ///< By absolute path: the drawing can be moved alone.
    AsGiven,  ///< By the text of SITE.json.
    Collected ///< By file name: the pictures are copied beside the drawing.
};

/// The text by which the drawing names a picture.
///
/// `asGiven` is the text of SITE.json, `picture` the file it names, `drawingFolder` the folder of the
/// drawing; both paths are absolute, with the links among their folders followed.
/// Relative texts have '/' between folders on every system, so that they do not depend on who wrote
/// the drawing; to a picture on another drive no relative path leads, so its path is absolute. Throws
/// BadInput where the text is no Unicode or holds a control character, which no line of a drawing can hold.
std::wstring drawingPath(PathForm form, const std::string& asGiven, const std::filesystem::path& picture,
                         const std::filesystem::path& drawingFolder);

/// The texts by which the drawing names the pictures of a site, one per image. Throws BadInput as drawingPath
/// does, with the image's place in SITE.json. But for PathForm::AsGiven all pictures must have been read.
std::vector<std::wstring> drawingPaths(const Site& site, PathForm form,
                                       const std::filesystem::path& drawingFolder);

/// Warns of every picture that is there, but to which its text in SITE.json does not lead from the drawing's
/// folder, nor its file name alone, so that CAD programs do not find it. That can only be with
/// PathForm::AsGiven.
void checkPathsAsGiven(const Manifest& manifest, const std::filesystem::path& drawingFolder,
                       Notices& notices);

} // namespace rasterplan_tool
