#include "drawing/CollectPictures.h"

#include "base/Failure.h"
#include "base/Files.h"
#include "base/LetterCase.h"
#include "base/PathText.h"
#include "base/Resources.h"
#include "picture/BinaryFile.h"
#include "picture/Picture.h"

#include <array>
#include <map>
#include <string>
#include <system_error>

namespace fs = std::filesystem;

namespace rasterplan_tool {
namespace {

bool holdSameBytes(const fs::path& a, const fs::path& b) {
    std::error_code ignored;
    if (fs::equivalent(a, b, ignored))
        return true;
    BinaryFile fileA(a);
    BinaryFile fileB(b);
    if (fileA.size() != fileB.size())
        return false;
    std::array<char, 16384> bytesA;
    std::array<char, 16384> bytesB;
    for (std::uint64_t place = 0; place < fileA.size(); place += bytesA.size())
        if (fileA.read(place, bytesA) != fileB.read(place, bytesB))
            return false;
    return true;
}

// Chooses the pictures to copy, one after the other.
class Collection {
public:
    explicit Collection(const fs::path& drawing)
        : m_drawing(drawing) {}

    void add(const fs::path& picture, std::size_t number) {
        const fs::path place = m_drawing.parent_path() / picture.filename();
        const std::string name = inSmallLetters(shownText(picture.filename()));
        if (name == inSmallLetters(shownText(m_drawing.filename())))
            throw BadInput("the drawing has the name of the picture; name another output file");
        const auto [other, isNew] = m_byName.try_emplace(name, Named{picture, number});
        if (!isNew) {
            if (!holdSameBytes(other->second.picture, picture)) {
                throw BadInput("image " + std::to_string(other->second.number) +
                               " has another picture with this file name, and --collect puts both into one "
                               "folder; rename one of the files");
            }
            return;
        }
        std::error_code ignored;
        if (!fs::exists(fs::symlink_status(place, ignored)))
            copies.push_back({picture, place});
        else if (!isFile(place) || !holdSameBytes(place, picture))
            throw BadInput(quoted(place) +
                           " is another file, which --collect does not replace; move it away, or "
                           "name an output file in another folder");
    }

    std::vector<PictureCopy> copies;

private:
    struct Named {
        fs::path picture;
        std::size_t number;
    };

    const fs::path& m_drawing;
    std::map<std::string, Named> m_byName;
};

} // namespace

std::vector<PictureCopy> picturesToCollect(const Manifest& manifest, const fs::path& drawing) {
    Collection collection(drawing);
    BadInputList failures;
    for (std::size_t i = 0; i < manifest.images.size(); ++i) {
        try {
            if (const fs::path picture = manifest.pictureFile(i); isFile(picture))
                collection.add(picture, i + 1);
        } catch (const BadInput& failure) {
            failures.add(manifest.where(i) + ": " + failure.what());
        } catch (const PictureError& error) {
            failures.add(manifest.where(i) + ": " + error.what() + "; " + error.advice());
        }
    }
    failures.throwIfAny();
    return std::move(collection.copies);
}

void collectPictures(const std::vector<PictureCopy>& copies, const fs::path& temporary, Progress& progress) {
    for (const PictureCopy& copy : copies) {
        progress.tell(static_cast<std::size_t>(&copy - copies.data()), copies.size());
        std::error_code error;
        fs::copy_file(copy.from, temporary, error);
        if (!error)
            fs::rename(temporary, copy.to, error);
        throwIfExhausted(error);
        if (error) {
            throw ExportFailed(quoted(copy.from) + ": the picture cannot be copied to " + quoted(copy.to) +
                               " (" + error.message() + "); make room there, or see to the permissions");
        }
    }
}

} // namespace rasterplan_tool
