#include "site/UnitNames.h"

#include "base/LetterCase.h"
#include "base/Suggestion.h"

#include <algorithm>
#include <array>

namespace rasterplan_tool {
namespace {

struct UnitName {
    DrawingUnit unit;
    std::string_view name;
    std::string_view spellings; // in small letters, without spaces and hyphens; the name first
};

constexpr std::array<UnitName, 22> unitNames{{
    {Unitless, "Unitless", "unitless none"},
    {Inches, "Inches", "inches inch in"},
    {Feet, "Feet", "feet foot ft"},
    {Miles, "Miles", "miles mile mi"},
    {Millimeters, "Millimeters", "millimeters millimeter millimetres millimetre mm"},
    {Centimeters, "Centimeters", "centimeters centimeter centimetres centimetre cm"},
    {Meters, "Meters", "meters meter metres metre m"},
    {Kilometers, "Kilometers", "kilometers kilometer kilometres kilometre km"},
    {Microinches, "Microinches", "microinches microinch uin"},
    {Mils, "Mils", "mils mil thou"},
    {Yards, "Yards", "yards yard yd"},
    {Angstroms, "Angstroms", "angstroms angstrom"},
    {Nanometers, "Nanometers", "nanometers nanometer nanometres nanometre nm"},
    {Microns, "Microns", "microns micron micrometers micrometer micrometres micrometre um"},
    {Decimeters, "Decimeters", "decimeters decimeter decimetres decimetre dm"},
    {Decameters, "Decameters", "decameters decameter decametres decametre dam"},
    {Hectometers, "Hectometers", "hectometers hectometer hectometres hectometre hm"},
    {Gigameters, "Gigameters", "gigameters gigameter gigametres gigametre gm"},
    {AstronomicalUnits, "AstronomicalUnits", "astronomicalunits astronomicalunit au"},
    {LightYears, "LightYears", "lightyears lightyear ly"},
    {Parsecs, "Parsecs", "parsecs parsec pc"},
    {USSurveyFeet, "USSurveyFeet", "ussurveyfeet ussurveyfoot usft ftus"},
}};

// Whether a word is one of those that stand between spaces.
bool holdsWord(std::string_view words, std::string_view word) {
    while (!words.empty()) {
        const std::size_t end = std::min(words.find(' '), words.size());
        if (words.substr(0, end) == word)
            return true;
        words.remove_prefix(std::min(end + 1, words.size()));
    }
    return false;
}

} // namespace

std::optional<DrawingUnit> unitFromName(std::string_view name) {
    std::string letters = inSmallLetters(name);
    std::erase_if(letters, [](char c) { return c == ' ' || c == '-'; });
    const auto* const found = std::find_if(unitNames.begin(), unitNames.end(), [&](const UnitName& row) {
        return holdsWord(row.spellings, letters);
    });
    return found == unitNames.end() ? std::nullopt : std::optional(found->unit);
}

std::string unitSuggestion(std::string_view name) {
    std::array<std::string_view, unitNames.size()> names;
    std::transform(unitNames.begin(), unitNames.end(), names.begin(),
                   [](const UnitName& row) { return row.name; });
    return suggestionText(name, names);
}

std::string_view unitSpellings(DrawingUnit unit) {
    return unitNames[static_cast<std::size_t>(unit)].spellings;
}

std::string_view unitName(DrawingUnit unit) {
    const auto* const found = std::find_if(unitNames.begin(), unitNames.end(),
                                           [unit](const UnitName& row) { return row.unit == unit; });
    return found == unitNames.end() ? "Unitless" : found->name;
}

std::string allUnitNames() {
    std::string names;
    for (const UnitName& row : unitNames) {
        names += names.empty() ? "" : ", ";
        names += row.name;
    }
    return names;
}

} // namespace rasterplan_tool
