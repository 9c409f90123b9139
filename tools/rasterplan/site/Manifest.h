#pragma once

#include "base/Notices.h"
#include "site/ImagePlace.h"

#include <RasterPlanWriter/DrawingUnit.h>

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace rasterplan_tool {

/// One image of SITE.json.
struct ManifestImage {
    std::size_t line = 1; ///< Line of SITE.json in which the image begins.
    std::string path; ///< UTF-8, exactly as it stands in SITE.json; not empty, without control characters.
    std::string name; ///< UTF-8, what the user calls the image; may be empty.
    ImagePlace place; ///< In the image's unit.
    DrawingUnit unit = Meters; ///< The image's own unit, else the site's.
};

/// The content of SITE.json. Coordinates are finite and at most largestCoordinate in magnitude.
struct Manifest {
    std::filesystem::path file; ///< SITE.json itself, as the user named it.
    DrawingUnit unit = Meters;  ///< The site's; where it names none that of all its images, else Meters.
    std::vector<ManifestImage> images; ///< At least one.

    /// Where an image stands, to begin a message with: `SITE.json:12: image 3 ("south.png")`, with its name
    /// where it has one.
    std::string where(std::size_t index) const;

    /// The same in two parts, as a warning names an image.
    Subject subject(std::size_t index) const;

    /// The picture's file, as fileBeside.
    std::filesystem::path pictureFile(std::size_t index) const;

    /// A file that SITE.json names in UTF-8, absolute: relative paths count from SITE.json's folder. Links
    /// among the folders are followed, since ".." behind one would lead elsewhere; a link that is the file
    /// itself keeps its name, which the drawing shows. Throws BadInput where the system's paths cannot hold
    /// the text.
    std::filesystem::path fileBeside(std::string_view path) const;
};

/// Reads a site. Throws BadInput with one line for every image that is wrong, or for what is wrong with the
/// file.
Manifest readManifest(const std::filesystem::path& file);

/// As readManifest, with the text at hand; `file` only names it.
Manifest parseManifest(std::string_view text, const std::filesystem::path& file);

} // namespace rasterplan_tool
