#pragma once

#include "site/JsonText.h"

#include <RasterPlanWriter/DrawingUnit.h>
#include <RasterPlanWriter/TripleDouble.h>

#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>

namespace rasterplan_tool {

/// A line of a file, to begin a message with: `SITE.json:12`.
std::string placeText(const std::filesystem::path& file, std::size_t line);

/// Reads the members of one object of SITE.json. Every failure is a BadInput that names the place: file,
/// line, owner and field.
class ObjectReader {
public:
    /// `owner` is what the object describes, to begin a message with: "image 3". `file` only names SITE.json;
    /// it and `value` must live as long as the reader. Throws BadInput when the value is no object.
    ObjectReader(const std::filesystem::path& file, const JsonValue& value, std::string owner);

    /// Throws BadInput for a member of another name, since a misspelt optional field would be passed over in
    /// silence otherwise, and for one that stands there twice. Names that begin with '_' are the user's own.
    void allowOnly(std::initializer_list<std::string_view> names) const;

    /// The value of a member; a null pointer where there is none.
    const JsonValue* find(std::string_view name) const;

    /// The value of a member. Throws BadInput, with an example, where there is none.
    const JsonValue& need(std::string_view name, std::string_view example) const;

    /// A text that is not empty. Throws BadInput for anything else; `example` is a member that would be
    /// right.
    std::string text(std::string_view name, std::string_view example) const;

    /// The path of a file: as `text`, and without control characters.
    std::string path(std::string_view name, std::string_view example) const;

    /// Three coordinates of at most largestCoordinate in magnitude. Throws BadInput for anything else.
    TripleDouble point(std::string_view name) const;

    /// As `point`, and not zero.
    TripleDouble direction(std::string_view name) const;

    /// A coordinate, or `otherwise` where there is no such member. Throws BadInput for anything but a number
    /// of at most largestCoordinate in magnitude.
    double coordinate(std::string_view name, double otherwise) const;

    /// A number greater than 0 and at most largestCoordinate. Throws BadInput for anything else.
    double positive(std::string_view name) const;

    /// A unit, or `otherwise` where there is no such member. Throws BadInput for what is no unit.
    DrawingUnit unit(std::string_view name, DrawingUnit otherwise) const;

    /// A reader of the object that a member is, which must be there. Throws BadInput for anything else.
    ObjectReader object(std::string_view name) const;

    /// Throws BadInput about a member.
    [[noreturn]] void failField(const JsonValue& value, std::string_view name, const std::string& text) const;

    /// Throws BadInput about the object.
    [[noreturn]] void fail(const std::string& text) const;

private:
    double coordinateOf(const JsonValue& value, std::string_view name, std::string_view form) const;
    [[noreturn]] void failAt(std::size_t line, const std::string& text) const;

    const std::filesystem::path& m_file;
    const JsonValue& m_value;
    std::string m_owner;
    const JsonValue::Object* m_members = nullptr;
};

} // namespace rasterplan_tool
