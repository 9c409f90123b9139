#pragma once

#include "base/Progress.h"
#include "picture/GeoReference.h"
#include "picture/Picture.h"
#include "site/Manifest.h"

#include <filesystem>
#include <optional>
#include <variant>
#include <vector>

namespace rasterplan_tool {

/// A world file of an image, read.
struct WorldFile {
    std::filesystem::path path;
    MapTransform transform;
};

/// What the files of an image say.
struct ImageFiles {
    std::filesystem::path file; ///< The picture's, as Manifest::pictureFile; empty when it was not read.
    std::variant<std::monostate, Picture, PictureError> picture; ///< The first when it was not read.
    std::optional<WorldFile> worldFile; ///< Of an image that is placed by a map, where there is one.
};

/// Which pictures are read.
enum class PicturesToRead {
    All,
    Needed ///< Those without which no place is known.
};

/// Reads the files of all images, each once, several at the same time; the result is in the order of the
/// manifest. A picture that cannot be read is noted, a world file that cannot be read is an error: throws
/// BadInput with one line for every such image.
std::vector<ImageFiles> readImageFiles(const Manifest& manifest, PicturesToRead which, Progress& progress);

} // namespace rasterplan_tool
