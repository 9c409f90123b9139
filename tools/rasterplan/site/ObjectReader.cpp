#include "site/ObjectReader.h"

#include "base/Failure.h"
#include "base/NumberText.h"
#include "base/PathText.h"
#include "base/Suggestion.h"
#include "base/VisibleText.h"
#include "site/UnitNames.h"

#include <algorithm>
#include <cmath>

namespace rasterplan_tool {

ObjectReader::ObjectReader(const std::filesystem::path& file, const JsonValue& value, std::string owner)
    : m_file(file)
    , m_value(value)
    , m_owner(std::move(owner))
    , m_members(value.as<JsonValue::Object>()) {
    if (m_members == nullptr)
        fail("is " + std::string(value.kind()) + "; write an object: {...}");
}

void ObjectReader::allowOnly(std::initializer_list<std::string_view> names) const {
    for (auto member = m_members->begin(); member != m_members->end(); ++member) {
        if (member->name.starts_with('_'))
            continue;
        if (std::find(names.begin(), names.end(), member->name) == names.end()) {
            std::string known;
            for (const std::string_view name : names) {
                known += known.empty() ? "" : ", ";
                known += name;
            }
            failAt(member->line, "has the unknown field \"" + visible(member->name) + '"' +
                                     suggestionText(member->name, {names.begin(), names.size()}) +
                                     "; the fields are " + known);
        }
        if (std::any_of(m_members->begin(), member,
                        [&](const JsonMember& earlier) { return earlier.name == member->name; })) {
            failAt(member->line,
                   "has the field \"" + visible(member->name) + "\" twice; leave one of them out");
        }
    }
}

const JsonValue* ObjectReader::find(std::string_view name) const {
    const auto found = std::find_if(m_members->begin(), m_members->end(),
                                    [name](const JsonMember& member) { return member.name == name; });
    return found == m_members->end() ? nullptr : &found->value;
}

const JsonValue& ObjectReader::need(std::string_view name, std::string_view example) const {
    const JsonValue* const value = find(name);
    if (value == nullptr)
        fail("has no field \"" + std::string(name) + "\"; add it, for example " + std::string(example));
    return *value;
}

std::string ObjectReader::text(std::string_view name, std::string_view example) const {
    const JsonValue& value = need(name, example);
    const std::string* const text = value.as<std::string>();
    if (text == nullptr) {
        failField(value, name,
                  "is " + std::string(value.kind()) + "; write a text, for example " + std::string(example));
    }
    if (text->empty())
        failField(value, name, "is empty; write for example " + std::string(example));
    return *text;
}

std::string ObjectReader::path(std::string_view name, std::string_view example) const {
    std::string path = text(name, example);
    if (breaksLines(path)) {
        failField(*find(name), name,
                  "holds a control character, which would break the drawing's lines; rename the file "
                  "(a backslash in JSON is written \\\\)");
    }
    return path;
}

TripleDouble ObjectReader::point(std::string_view name) const {
    const JsonValue& value = need(name, '"' + std::string(name) + "\": [x, y, z]");
    const auto* const numbers = value.as<JsonValue::Array>();
    if (numbers == nullptr)
        failField(value, name, "is " + std::string(value.kind()) + "; write three numbers: [x, y, z]");
    if (numbers->size() != 3) {
        failField(value, name,
                  "has " + std::to_string(numbers->size()) + " elements; write three numbers: [x, y, z]" +
                      (numbers->size() > 3 ? ", with a point and no comma in them" : ""));
    }
    constexpr std::string_view form = "three numbers: [x, y, z]";
    return {coordinateOf((*numbers)[0], name, form), coordinateOf((*numbers)[1], name, form),
            coordinateOf((*numbers)[2], name, form)};
}

TripleDouble ObjectReader::direction(std::string_view name) const {
    const TripleDouble direction = point(name);
    if (direction.x == 0.0 && direction.y == 0.0 && direction.z == 0.0)
        failField(*find(name), name, "is zero; write a direction of any length");
    return direction;
}

double ObjectReader::coordinate(std::string_view name, double otherwise) const {
    const JsonValue* const value = find(name);
    return value == nullptr ? otherwise : coordinateOf(*value, name, "a number");
}

double ObjectReader::positive(std::string_view name) const {
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

DrawingUnit ObjectReader::unit(std::string_view name, DrawingUnit otherwise) const {
    const JsonValue* const value = find(name);
    if (value == nullptr)
        return otherwise;
    const std::string* const text = value->as<std::string>();
    if (text == nullptr)
        failField(*value, name, "is " + std::string(value->kind()) + "; write a text: \"Meters\"");
    const std::optional<DrawingUnit> unit = unitFromName(*text);
    if (!unit) {
        failField(*value, name,
                  "is \"" + visible(*text) + "\", which is no unit" + unitSuggestion(*text) +
                      "; the units are " + allUnitNames());
    }
    return *unit;
}

ObjectReader ObjectReader::object(std::string_view name) const {
    return {m_file, *find(name), m_owner + ", " + std::string(name)};
}

void ObjectReader::failField(const JsonValue& value, std::string_view name, const std::string& text) const {
    throw BadInput(placeText(m_file, value.line) + ": " + m_owner + ", field \"" + std::string(name) +
                   "\": " + text);
}

void ObjectReader::fail(const std::string& text) const {
    failAt(m_value.line, text);
}

double ObjectReader::coordinateOf(const JsonValue& value, std::string_view name,
                                  std::string_view form) const {
    const double* const number = value.as<double>();
    if (number == nullptr)
        failField(value, name, "holds " + std::string(value.kind()) + "; write " + std::string(form));
    if (std::abs(*number) > largestCoordinate) {
        failField(value, name,
                  "holds " + shortestText(*number) + "; coordinates reach from -" +
                      shortestText(largestCoordinate) + " to " + shortestText(largestCoordinate));
    }
    return *number;
}

void ObjectReader::failAt(std::size_t line, const std::string& text) const {
    throw BadInput(placeText(m_file, line) + ": " + m_owner + ' ' + text);
}

std::string placeText(const std::filesystem::path& file, std::size_t line) {
    return shownText(file) + ':' + std::to_string(line);
}

} // namespace rasterplan_tool
