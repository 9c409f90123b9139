#pragma once

#include "picture/GeoReference.h"

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string_view>

namespace rasterplan_tool {

/// A world file that cannot be read or is none; the text says why and what to do.
class WorldFileError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The transform that a world file's text gives: x per column, y per column, x per row, y per row, and x and
/// y of the center of the left-top pixel, one number in a line. Throws WorldFileError.
MapTransform parseWorldFile(std::string_view text);

/// As parseWorldFile, of a file. Throws WorldFileError.
MapTransform readWorldFile(const std::filesystem::path& file);

/// The world file beside a picture: for a.png it is a.pgw, a.pngw or a.wld, whichever there is first, in
/// small letters or in capitals; of .jpg, .tif and other names the like.
std::optional<std::filesystem::path> findWorldFile(const std::filesystem::path& picture);

} // namespace rasterplan_tool
