#pragma once

#include "reader/DxfRecords.h"
#include "report/DrawingCheck.h"

#include <filesystem>
#include <string>
#include <vector>

namespace rasterplan_tool {

/// Where CAD programs look for the picture file that a drawing in `folder` names `name` (UTF-8): an absolute
/// path as it is, a relative one from the folder, and then a file of that name in the folder. Both kinds of
/// separators are taken on every system; an absolute path of Windows leads nowhere elsewhere, so only its
/// file's name is left. Empty for a name that no path can hold. Throws BadInput where the system's paths
/// cannot hold the text.
std::vector<std::filesystem::path> picturePlaces(const std::string& name,
                                                 const std::filesystem::path& folder);

/// What keeps the picture files of a drawing's images from showing: NoFile, FileMissing, UnreadableFile and
/// PixelCount, of each definition that an image names; in order of weight, then of lines. Files of formats
/// that this program cannot read are looked for only. Throws ExportFailed when no further file can be opened.
std::vector<Finding> checkFiles(const DxfDrawing& drawing, const std::filesystem::path& file);

} // namespace rasterplan_tool
