#include "site/ImageFiles.h"

#include "base/Failure.h"
#include "base/Parallel.h"
#include "base/PathText.h"
#include "picture/PictureHeader.h"
#include "picture/WorldFile.h"

namespace fs = std::filesystem;

namespace rasterplan_tool {
namespace {

std::optional<WorldFile> readWorldFileOf(const Manifest& manifest, std::size_t index, const MapPlace& place) {
    const std::optional<fs::path> path = place.worldFile.empty() ? findWorldFile(manifest.pictureFile(index))
                                                                 : manifest.fileBeside(place.worldFile);
    if (!path)
        return std::nullopt;
    try {
        return WorldFile{*path, readWorldFile(*path)};
    } catch (const WorldFileError& error) {
        throw BadInput(manifest.where(index) + ": world file " + quoted(*path) + ": " + error.what());
    }
}

ImageFiles readFilesOf(const Manifest& manifest, std::size_t index, PicturesToRead which) {
    const ImagePlace& place = manifest.images[index].place;
    ImageFiles files;
    if (const auto* const map = std::get_if<MapPlace>(&place))
        files.worldFile = readWorldFileOf(manifest, index, *map);
    if (which == PicturesToRead::Needed && std::holds_alternative<CornerPlace>(place))
        return files;
    files.file = manifest.pictureFile(index);
    try {
        files.picture = readPicture(files.file);
    } catch (const PictureError& error) {
        files.picture = error;
    }
    return files;
}

} // namespace

std::vector<ImageFiles> readImageFiles(const Manifest& manifest, PicturesToRead which, Progress& progress) {
    const std::size_t count = manifest.images.size();
    std::vector<ImageFiles> files(count);
    std::vector<std::string> wrong(count); // in the images' order, whichever thread reads them
    const auto read = [&](std::size_t i) {
        try {
            files[i] = readFilesOf(manifest, i, which);
        } catch (const BadInput& failure) {
            wrong[i] = failure.what();
        }
    };
    inParallel(count, read, [&](std::size_t done) { progress.tell(done, count); });
    BadInputList failures;
    for (const std::string& text : wrong)
        if (!text.empty())
            failures.add(text);
    failures.throwIfAny();
    return files;
}

} // namespace rasterplan_tool
