#include "picture/WorldFile.h"

#include "base/Files.h"
#include "base/LetterCase.h"
#include "base/NumberText.h"
#include "base/PathText.h"
#include "base/Resources.h"
#include "base/VisibleText.h"
#include "picture/BinaryFile.h"
#include "picture/Picture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <system_error>

namespace fs = std::filesystem;

namespace rasterplan_tool {
namespace {

constexpr std::size_t lineCount = 6;
constexpr std::string_view blanks = " \t\r";

std::string_view takeLine(std::string_view& text) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    line.remove_prefix(std::min(line.find_first_not_of(blanks), line.size()));
    return line.substr(0, line.find_last_not_of(blanks) + 1);
}

double parseLine(std::size_t number, std::string_view line) {
    const std::optional<double> value = parseNumber(line.substr(line.starts_with('+') ? 1 : 0));
    if (!value || std::abs(*value) > largestCoordinate) {
        throw WorldFileError("line " + std::to_string(number) + " is \"" + visible(line) +
                             "\", which is no number that fits; a world file is six lines with one number "
                             "each, with a point");
    }
    return *value;
}

struct Endings {
    std::string_view picture;
    std::array<std::string_view, 3> worldFile; // in the order in which they are looked for
};

constexpr std::array<Endings, 6> knownEndings{{
    {".png", {".pgw", ".pngw", ".wld"}},
    {".jpg", {".jgw", ".jpgw", ".wld"}},
    {".jpeg", {".jgw", ".jpegw", ".wld"}},
    {".tif", {".tfw", ".tifw", ".wld"}},
    {".tiff", {".tfw", ".tiffw", ".wld"}},
    {".bmp", {".bpw", ".bmpw", ".wld"}},
}};

} // namespace

MapTransform parseWorldFile(std::string_view text) {
    if (constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF"; text.starts_with(byteOrderMark))
        text.remove_prefix(byteOrderMark.size());
    std::array<double, lineCount> numbers{};
    for (std::size_t i = 0; i < lineCount; ++i)
        numbers[i] = parseLine(i + 1, takeLine(text));
    while (!text.empty())
        if (!takeLine(text).empty())
            throw WorldFileError(
                "there is more than six lines; a world file is six lines with one number each");
    return fromPixelCenter({.x = numbers[4],
                            .y = numbers[5],
                            .xPerColumn = numbers[0],
                            .yPerColumn = numbers[1],
                            .xPerRow = numbers[2],
                            .yPerRow = numbers[3]});
}

MapTransform readWorldFile(const fs::path& path) {
    try {
        BinaryFile file(path);
        std::array<char, 4096> buffer{}; // longer than any six numbers
        if (file.size() > buffer.size())
            throw WorldFileError("it is too long for a world file; name a file of six lines");
        return parseWorldFile(file.read(0, buffer));
    } catch (const PictureError& error) {
        throw WorldFileError(std::string(error.what()) + "; " + error.advice());
    }
}

std::optional<fs::path> findWorldFile(const fs::path& picture) {
    const std::string ending = inSmallLetters(utf8FromPath(picture.extension()));
    const auto* const row = std::find_if(knownEndings.begin(), knownEndings.end(),
                                         [&](const Endings& known) { return known.picture == ending; });
    if (row == knownEndings.end())
        return std::nullopt;
    for (const std::string_view worldFile : row->worldFile) {
        fs::path file = picture;
        if (file.replace_extension(worldFile); isFile(file))
            return file;
        if (file.replace_extension(inCapitals(worldFile)); isFile(file))
            return file;
    }
    return std::nullopt;
}

} // namespace rasterplan_tool
