#pragma once

#include "base/Console.h"
#include "site/ImageFiles.h"
#include "site/Manifest.h"
#include "site/Placement.h"
#include "site/Plane.h"

#include <RasterPlanWriter/ImageParam.h>
#include <RasterPlanWriter/RasterPlanWriter.h>

#include <filesystem>
#include <string>
#include <vector>

namespace rasterplan_tool {

/// A site: SITE.json, what the files of its images say, and where its images lie.
struct Site {
    Manifest manifest;
    std::vector<ImageFiles> files;   ///< One per image.
    std::vector<CornerPlace> places; ///< One per image, in the site's unit.
};

/// Reads a site and places its images. Throws BadInput with one line for every image that is wrong, or for
/// what is wrong with the file. A terminal sees how far that has come.
Site readSite(const std::filesystem::path& file, PicturesToRead which, Console& console);

/// The site's images as the library takes them, in the site's unit. `paths` are the texts by which the
/// drawing names the pictures, one per image. Throws BadInput with one line for every image that has no width
/// or height.
std::vector<ImageParam> makeImages(const Site& site, const std::vector<std::wstring>& paths);

/// Adds the images to a drawing. Throws BadInput with one line for every image that is no rectangle,
/// ExportFailed when the library fails.
void addImages(RasterPlanWriter& drawing, const Manifest& manifest, const std::vector<ImageParam>& images);

/// The plane that the library proposes for the images of a drawing.
/// Throws BadInput when they have no common plane.
Plane proposePlane(const RasterPlanWriter& drawing);

} // namespace rasterplan_tool
