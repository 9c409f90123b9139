#include "report/PictureCheck.h"

#include "base/Files.h"
#include "base/LetterCase.h"
#include "base/NumberText.h"
#include "base/PathText.h"
#include "report/PixelTolerance.h"
#include "site/UnitNames.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <system_error>
#include <variant>
#include <vector>

namespace fs = std::filesystem;

namespace rasterplan_tool {
namespace {

bool agrees(std::uint32_t pixels, double expected) {
    return std::abs(pixels - expected) <= pixelTolerance;
}

std::string sizeText(double width, double height) {
    return fixedText(width, 2) + " x " + fixedText(height, 2);
}

void checkSize(const Subject& subject, const ImageParam& image, PixelSize size, Notices& notices) {
    const double width = image.getNumPixelWidth();
    const double height = image.getNumPixelHeight();
    if (agrees(size.width, width) && agrees(size.height, height))
        return;
    const double fitting = size.width / image.getImgWidth();
    const std::string hint =
        agrees(size.height, fitting * image.getImgHeight())
            ? "pixelsPerUnit " + roundedText(fitting, 9) + " would fit, if the corners are right"
            : "correct pixelsPerUnit or the corners";
    notices.warn(subject,
                 "the pictures have other pixel counts than pixelsPerUnit times width and height gives, so "
                 "they will not fill their frames in every CAD program; correct pixelsPerUnit or the corners",
                 "the picture has " + std::to_string(size.width) + " x " + std::to_string(size.height) +
                     " pixels, but pixelsPerUnit times width and height gives " + sizeText(width, height) +
                     ", so it will not fill its frame in every CAD program; " + hint);
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

void checkEnding(const Subject& subject, std::string_view path, PictureFormat format, Notices& notices) {
    const std::string small = inSmallLetters(path);
    for (const Ending& ending : endings) {
        if (small.ends_with(ending.text) && ending.format != format) {
            notices.warn(subject,
                         "the names of the pictures end like those of another format, by which CAD programs "
                         "choose how to read them; rename the files",
                         "the picture is a " + std::string(formatName(format)) + ", but its name ends in " +
                             std::string(ending.text) +
                             ", by which CAD programs choose how to read it; rename the file");
        }
    }
}

void checkPicture(const Subject& subject, const std::string& path, const ImageParam& image,
                  const Picture& picture, Notices& notices) {
    checkSize(subject, image, picture.size, notices);
    checkEnding(subject, path, picture.format, notices);
    if (picture.isCutShort) {
        notices.warn(subject, "the files end before the pictures do; copy or save them anew",
                     "the file ends before the picture does; copy or save it anew");
    }
}

void checkPathLength(const Subject& subject, const ImageParam& image, Notices& notices) {
    constexpr std::size_t longestText = 2049;
    const std::size_t length = std::wstring_view(image.getImagePath()).size();
    if (length > longestText) {
        const std::string rest = "but a text of a DXF drawing at most " + std::to_string(longestText) +
                                 ", so CAD programs may not find the picture; move it to a shorter path";
        notices.warn(subject, "the paths in the drawing have more characters, " + rest,
                     "the path in the drawing has " + std::to_string(length) + " characters, " + rest);
    }
}

// The name under which the drawing lists a picture. CAD programs take such names without regard to case.
std::string listedName(std::string_view path) {
    return inSmallLetters(path.substr(path.find_last_of("/\\") + 1));
}

// The images that show one file, from 1.
struct SharedFile {
    fs::path path;
    std::vector<std::size_t> images;
};

// The files under one name, in the order of their first images.
using SharedName = std::vector<SharedFile>;

std::vector<SharedName> filesByName(const Manifest& manifest) {
    std::vector<SharedName> names;
    std::map<std::string, std::size_t> indexOf;
    for (std::size_t i = 0; i < manifest.images.size(); ++i) {
        const auto [known, isNew] = indexOf.try_emplace(listedName(manifest.images[i].path), names.size());
        if (isNew)
            names.emplace_back();
        SharedName& files = names[known->second];
        const fs::path path = manifest.pictureFile(i);
        auto found = std::find_if(files.begin(), files.end(),
                                  [&](const SharedFile& file) { return isSameFile(file.path, path); });
        if (found == files.end())
            found = files.insert(found, {path, {}});
        found->images.push_back(i + 1);
    }
    return names;
}

void checkName(const Manifest& manifest, const SharedName& files, Notices& notices) {
    for (const SharedFile& file : files) {
        const std::size_t first = file.images.front();
        if (file.images.size() > 1) {
            notices.warn(manifest.subject(first - 1).place + ": images " + rangesText(file.images) +
                         " show one file, " + quoted(file.path) +
                         "; a drawing lists its pictures by file name, so CAD programs list it once, and "
                         "some show it in one of these places only; give each image a copy of the file under "
                         "a name of its own");
        }
        if (&file != &files.front()) {
            const std::string rest =
                " the same file name, and the drawing lists its pictures by file name; rename one of the "
                "files";
            notices.warn(manifest.subject(first - 1), "other images have" + rest,
                         "image " + std::to_string(files.front().images.front()) + " has" + rest);
        }
    }
}

// The images of one unit other than the site's.
struct Converted {
    std::size_t first = 0;
    std::size_t count = 0;
};

void noteConversion(const Manifest& manifest, Notices& notices) {
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
    notices.note(shownText(manifest.file) + ": converted into the site's unit, " +
                 std::string(unitName(manifest.unit)) + ": " + units);
}

} // namespace

void checkPictures(const Site& site, const std::vector<ImageParam>& images, Notices& notices) {
    for (std::size_t i = 0; i < images.size(); ++i) {
        const Subject subject = site.manifest.subject(i);
        checkPathLength(subject, images[i], notices);
        if (const auto* const picture = std::get_if<Picture>(&site.files[i].picture)) {
            checkPicture(subject, site.manifest.images[i].path, images[i], *picture, notices);
        } else if (const auto* const error = std::get_if<PictureError>(&site.files[i].picture)) {
            const std::string advice = error->advice();
            const std::string text = std::string(error->what()) +
                                     ", so neither its pixel count nor whether it is whole was checked" +
                                     (advice.empty() ? "" : "; " + advice);
            notices.warn(subject, text, quoted(site.manifest.pictureFile(i)) + ": " + text);
        }
    }
}

void checkManifest(const Manifest& manifest, Notices& notices) {
    for (const SharedName& files : filesByName(manifest))
        checkName(manifest, files, notices);
    noteConversion(manifest, notices);
}

} // namespace rasterplan_tool
