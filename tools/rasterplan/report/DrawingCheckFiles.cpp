#include "report/DrawingCheckFiles.h"

#include "base/Failure.h"
#include "base/PathText.h"
#include "base/Resources.h"
#include "base/VisibleText.h"
#include "picture/PictureHeader.h"
#include "reader/DxfPointers.h"
#include "reader/DxfText.h"
#include "report/PixelTolerance.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <set>
#include <span>
#include <string_view>
#include <system_error>

namespace fs = std::filesystem;

namespace rasterplan_tool {
namespace {

// Whether a path begins with a drive or a computer of Windows, and this is not Windows.
bool isOfAnotherSystem(std::string_view name) {
    constexpr bool isWindows = fs::path::preferred_separator == '\\';
    const auto isLetter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
    return !isWindows &&
           (name.starts_with("\\\\") || (name.size() > 1 && isLetter(name[0]) && name[1] == ':'));
}

std::string withSlashes(std::string name) {
    std::replace(name.begin(), name.end(), '\\', '/');
    return name;
}

std::optional<fs::path> firstFile(const std::vector<fs::path>& places) {
    for (const fs::path& place : places) {
        std::error_code error;
        if (fs::is_regular_file(place, error))
            return place;
        throwIfExhausted(error);
    }
    return std::nullopt;
}

std::string listed(const std::vector<fs::path>& places) {
    std::string text;
    for (const fs::path& place : places)
        text += (text.empty() ? "" : ", ") + shownText(place);
    return text.empty() ? "nowhere, because no path can hold it" : text;
}

// A file of these names should be one that readPixelSize reads; what others hold is not known here.
bool shouldBeReadable(const fs::path& file) {
    constexpr std::array<std::string_view, 6> readable = {".png", ".jpg", ".jpeg", ".tif", ".tiff", ".bmp"};
    std::string extension = shownText(file.extension());
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return std::find(readable.begin(), readable.end(), extension) != readable.end();
}

bool differs(std::optional<double> written, std::uint32_t pixels) {
    return written && std::abs(*written - pixels) > pixelTolerance;
}

class FileCheck {
public:
    explicit FileCheck(const fs::path& drawing)
        : m_folder(fs::absolute(drawing).parent_path()) {}

    void check(const DxfRecord& definition) {
        const std::string name(trimmed(unicodeText(definition.value(1))));
        if (name.empty()) {
            add(FindingKind::NoFile, definition,
                "the definition names no picture file; write its path in code 1");
            return;
        }
        std::vector<fs::path> places;
        try {
            places = picturePlaces(name, m_folder);
        } catch (const BadInput&) { // no path can hold the name
        }
        if (const std::optional<fs::path> file = firstFile(places)) {
            checkPixels(definition, *file);
        } else {
            add(FindingKind::FileMissing, definition,
                "the picture file \"" + name + "\" is missing; looked for at " + listed(places) +
                    (isOfAnotherSystem(name) ? ", since its path is one of Windows" : "") +
                    "; put the file beside the drawing or correct the path in code 1");
        }
    }

    std::vector<Finding> findings;

private:
    void add(FindingKind kind, const DxfRecord& definition, std::string text) {
        findings.push_back({kind, definition.type, definition.handle(), definition.line, std::move(text)});
    }

    void checkPixels(const DxfRecord& definition, const fs::path& file) {
        try {
            const PixelSize size = readPixelSize(file);
            if (differs(definition.number(10), size.width) || differs(definition.number(20), size.height)) {
                add(FindingKind::PixelCount, definition,
                    "the definition has " + definition.value(10) + " x " + definition.value(20) +
                        " pixels, but the file " + shownText(file) + " has " + std::to_string(size.width) +
                        " x " + std::to_string(size.height) +
                        ", so the picture does not fill its frame; give the drawing the picture that it was "
                        "made for, or write it anew");
            }
        } catch (const PictureError& error) {
            if (shouldBeReadable(file)) {
                add(FindingKind::UnreadableFile, definition,
                    "the picture file " + shownText(file) + " cannot be read: " + error.what() +
                        "; make it anew");
            }
        }
    }

    fs::path m_folder;
};

} // namespace

std::vector<fs::path> picturePlaces(const std::string& name, const fs::path& folder) {
    std::vector<fs::path> places;
    const auto add = [&places](const fs::path& place) {
        const fs::path preferred = fs::path(place).make_preferred();
        if (std::find(places.begin(), places.end(), preferred) == places.end())
            places.push_back(preferred);
    };
    if (breaksLines(name))
        return places;
    const fs::path path = pathFromUtf8(withSlashes(name));
    if (!isOfAnotherSystem(name)) {
        add(folder / pathFromUtf8(name)); // which is the path alone where it is absolute
        add(folder / path);
    }
    if (path.has_filename())
        add(folder / path.filename());
    return places;
}

std::vector<Finding> checkFiles(const DxfDrawing& drawing, const fs::path& file) {
    const std::span<const DxfRecord> records = drawing.wholeRecords();
    const DxfHandles handles(records);
    std::set<const DxfRecord*> definitions;
    for (const DxfRecord& record : records)
        if (record.type == "IMAGE")
            if (const DxfRecord* const definition = handles.find(record.value(340), "IMAGEDEF"))
                definitions.insert(definition);
    FileCheck check(file);
    for (const DxfRecord* definition : definitions)
        check.check(*definition);
    sortByWeight(check.findings);
    return check.findings;
}

} // namespace rasterplan_tool
