#include "report/PictureCheck.h"

#include "base/LetterCase.h"
#include "base/NumberText.h"
#include "base/PathText.h"
#include "site/UnitNames.h"

#include <array>
#include <cmath>
#include <map>
#include <string>
#include <string_view>
#include <variant>

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

// CAD programs choose the reader of a picture by the ending of its name.
struct Ending {
    std::string_view text;
    PictureFormat format;
};

constexpr std::array<Ending, 7> endings{{
    {".png", PictureFormat::Png},
    {".jpg", PictureFormat::Jpeg},
    {".jpeg", PictureFormat::Jpeg},
    {".tif", PictureFormat::Tiff},
    {".tiff", PictureFormat::Tiff},
    {".bmp", PictureFormat::Bmp},
    {".dib", PictureFormat::Bmp},
}};

void checkEnding(const std::string& where, std::string_view path, PictureFormat format, Console& console) {
    const std::string small = inSmallLetters(path);
    for (const Ending& ending : endings) {
        if (small.ends_with(ending.text) && ending.format != format) {
            console.warning(where + ": the picture is a " + std::string(formatName(format)) +
                            ", but its name ends in " + std::string(ending.text) +
                            ", by which CAD programs choose how to read it; rename the file");
        }
    }
}

void checkPicture(const std::string& where, const std::string& path, const ImageParam& image,
                  const Picture& picture, Console& console) {
    checkSize(where, image, picture.size, console);
    checkEnding(where, path, picture.format, console);
    if (picture.isCutShort)
        console.warning(where + ": the file ends before the picture does; copy or save it anew");
}

void checkPathLength(const std::string& where, const ImageParam& image, Console& console) {
    constexpr std::size_t longestText = 2049;
    const std::size_t length = std::wstring_view(image.getImagePath()).size();
    if (length > longestText) {
        console.warning(where + ": the path in the drawing has " + std::to_string(length) +
                        " characters, but a text of a DXF drawing at most " + std::to_string(longestText) +
                        ", so CAD programs may not find the picture; move it to a shorter path");
    }
}

// The name under which the drawing lists a picture. CAD programs take such names without regard to case.
std::string listedName(std::string_view path) {
    return inSmallLetters(path.substr(path.find_last_of("/\\") + 1));
}

// The images of one unit other than the site's.
struct Converted {
    std::size_t first = 0;
    std::size_t count = 0;
};

void noteConversion(const Manifest& manifest, Console& console) {
    std::map<DrawingUnit, Converted> converted;
    for (std::size_t i = 0; i < manifest.images.size(); ++i)
        if (const DrawingUnit unit = manifest.images[i].unit; unit != manifest.unit)
            ++converted.try_emplace(unit, Converted{i, 0}).first->second.count;
    if (converted.empty())
        return;
    std::string units;
    for (const auto& [unit, images] : converted) {
        units += units.empty() ? "" : ", ";
        units += std::string(unitName(unit)) + " (image " + std::to_string(images.first + 1) +
                 (images.count > 1 ? " and " + std::to_string(images.count - 1) + " more)" : ")");
    }
    console.note(shownText(manifest.file) + ": converted into the site's unit, " +
                 std::string(unitName(manifest.unit)) + ": " + units);
}

} // namespace

void checkPictures(const Site& site, const std::vector<ImageParam>& images, Console& console) {
    for (std::size_t i = 0; i < images.size(); ++i) {
        const std::string where = site.manifest.where(i);
        checkPathLength(where, images[i], console);
        if (const auto* const picture = std::get_if<Picture>(&site.files[i].picture)) {
            checkPicture(where, site.manifest.images[i].path, images[i], *picture, console);
        } else if (const auto* const error = std::get_if<PictureError>(&site.files[i].picture)) {
            const std::string advice = error->advice();
            console.warning(where + ": " + quoted(site.manifest.pictureFile(i)) + ": " + error->what() +
                            ", so neither its pixel count nor whether it is whole was checked" +
                            (advice.empty() ? "" : "; " + advice));
        }
    }
}

void checkManifest(const Manifest& manifest, Console& console) {
    std::map<std::string, std::size_t> firstByName;
    for (std::size_t i = 0; i < manifest.images.size(); ++i) {
        const auto [found, isNew] = firstByName.try_emplace(listedName(manifest.images[i].path), i);
        if (!isNew) {
            console.warning(
                manifest.where(i) + ": image " + std::to_string(found->second + 1) +
                " has the same file name, and the drawing lists its pictures by file name; rename "
                "one of the files");
        }
    }
    noteConversion(manifest, console);
}

} // namespace rasterplan_tool
