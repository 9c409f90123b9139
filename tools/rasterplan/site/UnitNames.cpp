#include "site/UnitNames.h"

#include <algorithm>
#include <array>

namespace rasterplan_tool {
namespace {

struct UnitName {
    DrawingUnit unit;
    std::string_view name;
};

constexpr std::array<UnitName, 22> unitNames{{
    {Unitless, "Unitless"},
    {Inches, "Inches"},
    {Feet, "Feet"},
    {Miles, "Miles"},
    {Millimeters, "Millimeters"},
    {Centimeters, "Centimeters"},
    {Meters, "Meters"},
    {Kilometers, "Kilometers"},
    {Microinches, "Microinches"},
    {Mils, "Mils"},
    {Yards, "Yards"},
    {Angstroms, "Angstroms"},
    {Nanometers, "Nanometers"},
    {Microns, "Microns"},
    {Decimeters, "Decimeters"},
    {Decameters, "Decameters"},
    {Hectometers, "Hectometers"},
    {Gigameters, "Gigameters"},
    {AstronomicalUnits, "AstronomicalUnits"},
    {LightYears, "LightYears"},
    {Parsecs, "Parsecs"},
    {USSurveyFeet, "USSurveyFeet"},
}};

} // namespace

std::optional<DrawingUnit> unitFromName(std::string_view name) {
    const auto* const found = std::find_if(unitNames.begin(), unitNames.end(),
                                           [name](const UnitName& row) { return row.name == name; });
    return found == unitNames.end() ? std::nullopt : std::optional(found->unit);
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
