#include "site/Manifest.h"

#include "base/Failure.h"
#include "base/PathText.h"
#include "base/Resources.h"
#include "base/VisibleText.h"
#include "site/JsonText.h"
#include "site/ObjectReader.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <iterator>
#include <system_error>

namespace fs = std::filesystem;

namespace rasterplan_tool {
namespace {

ManifestImage readImage(const fs::path& file, const JsonValue& value, std::size_t number,
                        DrawingUnit siteUnit) {
    const ObjectReader reader(file, value, "image " + std::to_string(number));
    reader.allowOnly({"path", "name", "leftTop", "leftBottom", "rightBottom", "right", "up", "pixelsPerUnit",
                      "worldFile", "plane", "elevation", "unit"});
    ManifestImage image;
    image.line = value.line;
    image.path = reader.path("path", R"("path": "south.png")");
    if (reader.find("name") != nullptr)
        image.name = reader.text("name", R"("name": "South facade")");
    image.place = readPlace(reader);
    image.unit = reader.unit("unit", siteUnit);
    return image;
}

std::string textOfManifest(const fs::path& file) {
    std::error_code ignored;
    if (!fs::exists(file, ignored))
        throw BadInput(quoted(file) + ": there is no such file; check the path of SITE.json");
    if (fs::is_directory(file, ignored))
        throw BadInput(quoted(file) + ": this is a folder; name the SITE.json file in it");
    errno = 0;
    std::ifstream stream(file, std::ios::binary);
    if (!stream.is_open()) {
        throwIfExhausted(errno);
        throw BadInput(quoted(file) + ": the file cannot be read; check its permissions");
    }
    return {std::istreambuf_iterator<char>(stream), {}};
}

} // namespace

std::string Manifest::where(std::size_t index) const {
    const Subject image = subject(index);
    return image.place + ": " + image.name;
}

Subject Manifest::subject(std::size_t index) const {
    const ManifestImage& image = images[index];
    return {placeText(file, image.line), "image " + std::to_string(index + 1) + " (\"" +
                                             visible(image.name.empty() ? image.path : image.name) + "\")"};
}

fs::path Manifest::pictureFile(std::size_t index) const {
    return fileBeside(images[index].path);
}

fs::path Manifest::fileBeside(std::string_view path) const {
    const fs::path beside = fs::absolute(file).parent_path() / pathFromUtf8(path);
    std::error_code error;
    const fs::path folder = fs::weakly_canonical(beside.parent_path(), error);
    throwIfExhausted(error);
    return error ? beside : folder / beside.filename();
}

Manifest readManifest(const fs::path& file) {
    return parseManifest(textOfManifest(file), file);
}

Manifest parseManifest(std::string_view text, const fs::path& file) {
    JsonValue root;
    try {
        root = parseJson(text);
    } catch (const JsonError& error) {
        const JsonPlace& place = error.place();
        throw BadInput(placeText(file, place.line) + ':' + std::to_string(place.column) + ": " +
                       (place.element > 0 ? "image " + std::to_string(place.element) + ": " : "") +
                       "this is not JSON: " + error.what());
    }
    const ObjectReader reader(file, root, "the site");
    reader.allowOnly({"$schema", "unit", "images"});
    Manifest manifest;
    manifest.file = file;
    manifest.unit = reader.unit("unit", Meters);
    const JsonValue& list = reader.need("images", R"("images": [{"path": ...}])");
    const auto* const values = list.as<JsonValue::Array>();
    if (values == nullptr)
        reader.failField(list, "images", "is " + std::string(list.kind()) + "; write a list: [{...}, {...}]");
    if (values->empty())
        reader.failField(list, "images", "is an empty list; a drawing needs at least one image");

    BadInputList failures;
    for (std::size_t i = 0; i < values->size(); ++i) {
        try {
            manifest.images.push_back(readImage(file, (*values)[i], i + 1, manifest.unit));
        } catch (const BadInput& failure) {
            failures.add(failure.what());
        }
    }
    failures.throwIfAny();
    const DrawingUnit first = manifest.images.front().unit;
    if (reader.find("unit") == nullptr &&
        std::all_of(manifest.images.begin(), manifest.images.end(),
                    [first](const ManifestImage& image) { return image.unit == first; }))
        manifest.unit = first;
    return manifest;
}

} // namespace rasterplan_tool
