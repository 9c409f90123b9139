#include "report/PictureCheck.h"

#include "base/NumberText.h"
#include "base/PathText.h"
#include "picture/PictureHeader.h"
#include "site/UnitNames.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <string>
#include <string_view>

namespace rasterplan_tool {
namespace {

constexpr double pixelTolerance = 0.5;

bool agrees(std::uint32_t pixels, double expected) {
    return std::abs(pixels - expected) <= pixelTolerance;
}

std::string sizeText(double width, double height) {
    return fixedText(width, 2) + " x " + fixedText(height, 2);
}

void checkSize(const std::string& where, const ImageParam& image, PixelSize size, Console& console) {
    const double width = image.getNumPixelWidth();
    const double height = image.getNumPixelHeight();
    if (agrees(size.width, width) && agrees(size.height, height))
        return;
    const double fitting = size.width / image.getImgWidth();
    const std::string hint =
        agrees(size.height, fitting * image.getImgHeight())
            ? "pixelsPerUnit " + roundedText(fitting, 9) + " would fit, if the corners are right"
            : "correct pixelsPerUnit or the corners";
    console.warning(where + ": the picture has " + std::to_string(size.width) + " x " +
                    std::to_string(size.height) + " pixels, but pixelsPerUnit times width and height gives " +
                    sizeText(width, height) + ", so it will not fill its frame in every CAD program; " +
                    hint);
}

// The name under which the drawing lists a picture. CAD programs take such names without regard to case.
std::string listedName(std::string_view path) {
    std::string name(path.substr(path.find_last_of("/\\") + 1));
    std::transform(name.begin(), name.end(), name.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return name;
}

} // namespace

void checkPictures(const Manifest& manifest, const std::vector<ImageParam>& images, Console& console) {
    for (std::size_t i = 0; i < images.size(); ++i) {
        const std::filesystem::path file = manifest.pictureFile(i);
        try {
            checkSize(manifest.where(i), images[i], readPixelSize(file), console);
        } catch (const PictureError& error) {
            console.warning(manifest.where(i) + ": " + quoted(file) + ": " + error.what() +
                            ", so its pixel count was not checked; correct the path or the file");
        }
    }
}

void checkManifest(const Manifest& manifest, Console& console) {
    std::map<std::string, std::size_t> firstByName;
    std::map<DrawingUnit, std::size_t> firstByUnit;
    for (std::size_t i = 0; i < manifest.images.size(); ++i) {
        const ManifestImage& image = manifest.images[i];
        firstByUnit.try_emplace(image.unit, i);
        const auto [found, isNew] = firstByName.try_emplace(listedName(image.path), i);
        if (!isNew) {
            console.warning(
                manifest.where(i) + ": image " + std::to_string(found->second + 1) +
                " has the same file name, and the drawing lists its pictures by file name; rename "
                "one of the files");
        }
    }
    if (firstByUnit.size() > 1) {
        std::string units;
        for (const auto& [unit, index] : firstByUnit) {
            units += units.empty() ? "" : ", ";
            units += std::string(unitName(unit)) + " (image " + std::to_string(index + 1) + ')';
        }
        console.warning(shownText(manifest.file) + ": the images have different units: " + units +
                        "; a drawing has one unit, that of the last image (" +
                        std::string(unitName(manifest.images.back().unit)) +
                        "), and no coordinate is converted; give all images the same unit");
    }
}

} // namespace rasterplan_tool
