#include "site/Manifest.h"

#include "base/Failure.h"
#include "base/NumberText.h"
#include "base/PathText.h"
#include "base/Resources.h"
#include "base/VisibleText.h"
#include "site/JsonText.h"
#include "site/UnitNames.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <system_error>

namespace fs = std::filesystem;

namespace rasterplan_tool {
namespace {

std::string at(const fs::path& file, std::size_t line) {
    return shownText(file) + ':' + std::to_string(line);
}

// Reads the members of one object. Every message names the place: file, line, image and field.
class ObjectReader {
public:
    ObjectReader(const fs::path& file, const JsonValue& value, std::string owner)
        : m_file(file)
        , m_value(value)
        , m_owner(std::move(owner)) {
        m_members = value.as<JsonValue::Object>();
        if (m_members == nullptr)
            fail(value.line, "is " + std::string(value.kind()) + "; write an object: {...}");
    }

    // A misspelt optional field would be passed over in silence otherwise.
    void allowOnly(std::initializer_list<std::string_view> names) const {
        for (auto member = m_members->begin(); member != m_members->end(); ++member) {
            if (std::find(names.begin(), names.end(), member->name) == names.end()) {
                std::string known;
                for (const std::string_view name : names) {
                    known += known.empty() ? "" : ", ";
                    known += name;
                }
                fail(member->line,
                     "has the unknown field \"" + visible(member->name) + "\"; the fields are " + known);
            }
            if (std::any_of(m_members->begin(), member,
                            [&](const JsonMember& earlier) { return earlier.name == member->name; })) {
                fail(member->line,
                     "has the field \"" + visible(member->name) + "\" twice; leave one of them out");
            }
        }
    }

    const JsonValue* find(std::string_view name) const {
        const auto found = std::find_if(m_members->begin(), m_members->end(),
                                        [name](const JsonMember& member) { return member.name == name; });
        return found == m_members->end() ? nullptr : &found->value;
    }

    const JsonValue& need(std::string_view name, std::string_view example) const {
        const JsonValue* const value = find(name);
        if (value == nullptr) {
            fail(m_value.line,
                 "has no field \"" + std::string(name) + "\"; add it, for example " + std::string(example));
        }
        return *value;
    }

    std::string path(std::string_view name) const {
        const JsonValue& value = need(name, R"("path": "south.png")");
        const std::string* const text = value.as<std::string>();
        if (text == nullptr)
            failField(value, name, "is " + std::string(value.kind()) + "; write a text: \"south.png\"");
        if (text->empty())
            failField(value, name, "is empty; name the picture's file");
        if (breaksLines(*text)) {
            failField(value, name,
                      "holds a control character, which would break the drawing's lines; rename the file "
                      "(a backslash in JSON is written \\\\)");
        }
        return *text;
    }

    TripleDouble point(std::string_view name) const {
        const JsonValue& value = need(name, '"' + std::string(name) + "\": [x, y, z]");
        const auto* const numbers = value.as<JsonValue::Array>();
        if (numbers == nullptr)
            failField(value, name, "is " + std::string(value.kind()) + "; write three numbers: [x, y, z]");
        if (numbers->size() != 3) {
            failField(value, name,
                      "has " + std::to_string(numbers->size()) + " elements; write three numbers: [x, y, z]");
        }
        return {coordinate((*numbers)[0], name), coordinate((*numbers)[1], name),
                coordinate((*numbers)[2], name)};
    }

    double positive(std::string_view name) const {
        const JsonValue& value = need(name, '"' + std::string(name) + "\": 200.0");
        const double* const number = value.as<double>();
        if (number == nullptr)
            failField(value, name, "is " + std::string(value.kind()) + "; write a number greater than 0");
        if (!(*number > 0.0) || *number > largestCoordinate) {
            failField(value, name,
                      "is " + shortestText(*number) + "; write a number greater than 0 and at most " +
                          shortestText(largestCoordinate));
        }
        return *number;
    }

    DrawingUnit unit(std::string_view name, DrawingUnit otherwise) const {
        const JsonValue* const value = find(name);
        if (value == nullptr)
            return otherwise;
        const std::string* const text = value->as<std::string>();
        if (text == nullptr)
            failField(*value, name, "is " + std::string(value->kind()) + "; write a text: \"Meters\"");
        const std::optional<DrawingUnit> unit = unitFromName(*text);
        if (!unit) {
            failField(*value, name,
                      "is \"" + visible(*text) + "\", which is no unit; the units are " + allUnitNames());
        }
        return *unit;
    }

    [[noreturn]] void failField(const JsonValue& value, std::string_view name,
                                const std::string& text) const {
        throw BadInput(at(m_file, value.line) + ": " + m_owner + ", field \"" + std::string(name) +
                       "\": " + text);
    }

private:
    double coordinate(const JsonValue& value, std::string_view name) const {
        const double* const number = value.as<double>();
        if (number == nullptr)
            failField(value, name, "holds " + std::string(value.kind()) + "; write three numbers: [x, y, z]");
        if (std::abs(*number) > largestCoordinate) {
            failField(value, name,
                      "holds " + shortestText(*number) + "; coordinates reach from -" +
                          shortestText(largestCoordinate) + " to " + shortestText(largestCoordinate));
        }
        return *number;
    }

    [[noreturn]] void fail(std::size_t line, const std::string& text) const {
        throw BadInput(at(m_file, line) + ": " + m_owner + ' ' + text);
    }

    const fs::path& m_file;
    const JsonValue& m_value;
    std::string m_owner;
    const JsonValue::Object* m_members = nullptr;
};

bool samePoint(const TripleDouble& a, const TripleDouble& b) {
    return a.x == b.x && a.y == b.y && a.z == b.z;
}

ManifestImage readImage(const fs::path& file, const JsonValue& value, std::size_t number,
                        DrawingUnit siteUnit) {
    const ObjectReader reader(file, value, "image " + std::to_string(number));
    reader.allowOnly({"path", "leftTop", "leftBottom", "rightBottom", "pixelsPerUnit", "unit"});
    ManifestImage image;
    image.line = value.line;
    image.path = reader.path("path");
    image.leftTop = reader.point("leftTop");
    image.leftBottom = reader.point("leftBottom");
    image.rightBottom = reader.point("rightBottom");
    image.pixelsPerUnit = reader.positive("pixelsPerUnit");
    image.unit = reader.unit("unit", siteUnit);
    for (const std::string_view corner : {"leftTop", "rightBottom"}) {
        if (samePoint(corner == "leftTop" ? image.leftTop : image.rightBottom, image.leftBottom)) {
            reader.failField(*reader.find(corner), corner,
                             "is the same point as leftBottom; correct one of them");
        }
    }
    return image;
}

std::string readFile(const fs::path& file) {
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
    return at(file, images[index].line) + ": image " + std::to_string(index + 1) + " (\"" +
           visible(images[index].path) + "\")";
}

fs::path Manifest::pictureFile(std::size_t index) const {
    const fs::path picture = fs::absolute(file).parent_path() / pathFromUtf8(images[index].path);
    std::error_code error;
    const fs::path folder = fs::weakly_canonical(picture.parent_path(), error);
    throwIfExhausted(error);
    return error ? picture : folder / picture.filename();
}

Manifest readManifest(const fs::path& file) {
    return parseManifest(readFile(file), file);
}

Manifest parseManifest(std::string_view text, const fs::path& file) {
    JsonValue root;
    try {
        root = parseJson(text);
    } catch (const JsonError& error) {
        throw BadInput(at(file, error.line()) + ": this is not valid JSON (UTF-8): " + error.what() +
                       "; correct it there or just before");
    }
    const ObjectReader reader(file, root, "the site");
    reader.allowOnly({"unit", "images"});
    const DrawingUnit unit = reader.unit("unit", Meters);
    const JsonValue& list = reader.need("images", R"("images": [{"path": ...}])");
    const auto* const values = list.as<JsonValue::Array>();
    if (values == nullptr)
        reader.failField(list, "images", "is " + std::string(list.kind()) + "; write a list: [{...}, {...}]");
    if (values->empty())
        reader.failField(list, "images", "is an empty list; a drawing needs at least one image");

    Manifest manifest;
    manifest.file = file;
    BadInputList failures;
    for (std::size_t i = 0; i < values->size(); ++i) {
        try {
            manifest.images.push_back(readImage(file, (*values)[i], i + 1, unit));
        } catch (const BadInput& failure) {
            failures.add(failure.what());
        }
    }
    failures.throwIfAny();
    return manifest;
}

} // namespace rasterplan_tool
