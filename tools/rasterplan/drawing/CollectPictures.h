#pragma once

#include "base/Progress.h"
#include "site/Manifest.h"

#include <filesystem>
#include <vector>

namespace rasterplan_tool {

/// A picture that is to be copied beside the drawing.
struct PictureCopy {
    std::filesystem::path from;
    std::filesystem::path to; ///< Does not exist yet.
};

/// The pictures of a site that do not lie beside `drawing` under their own names, each once. A picture that
/// is not there is left out. Nothing is written. Throws BadInput with one line for every picture whose name
/// belongs to another file there, to another picture, in whichever letters, or to the drawing.
std::vector<PictureCopy> picturesToCollect(const Manifest& manifest, const std::filesystem::path& drawing);

/// Copies the pictures, each first to `temporary`, a file in the folder where they go that does not exist
/// before and afterwards. Throws ExportFailed where one cannot be copied; whole copies stay then.
void collectPictures(const std::vector<PictureCopy>& copies, const std::filesystem::path& temporary,
                     Progress& progress);

} // namespace rasterplan_tool
