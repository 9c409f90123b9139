#include "site/UnitNames.h"

#include "base/PathText.h"
#include "tool/TestFiles.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <utility>

namespace rasterplan_tool {

TEST(UnitNames, EveryCodeHasANameThatLeadsBack) {
    for (int code = Unitless; code <= USSurveyFeet; ++code) {
        const auto unit = static_cast<DrawingUnit>(code);
        EXPECT_EQ(unitFromName(unitName(unit)), unit) << code;
    }
    EXPECT_EQ(unitName(Meters), "Meters");
    EXPECT_EQ(unitName(USSurveyFeet), "USSurveyFeet");
}

TEST(UnitNames, ShortFormsAndEveryCaseAreUnits) {
    for (const auto& [text, unit] : {std::pair{"m", Meters},
                                     {"MM", Millimeters},
                                     {"Cm", Centimeters},
                                     {"ft", Feet},
                                     {"in", Inches},
                                     {"METERS", Meters},
                                     {"metre", Meters},
                                     {"foot", Feet},
                                     {"inch", Inches},
                                     {"none", Unitless},
                                     {"US Survey Feet", USSurveyFeet},
                                     {"us-ft", USSurveyFeet},
                                     {"light years", LightYears}})
        EXPECT_EQ(unitFromName(text), unit) << text;
}

TEST(UnitNames, EverySpellingIsAUnitOfItsOwn) {
    for (int code = Unitless; code <= USSurveyFeet; ++code) {
        const auto unit = static_cast<DrawingUnit>(code);
        std::istringstream spellings{std::string(unitSpellings(unit))};
        for (std::string spelling; spellings >> spelling;)
            EXPECT_EQ(unitFromName(spelling), unit) << spelling;
    }
}

TEST(UnitNames, SchemaHoldsEverySpelling) {
    std::set<std::string> spellings;
    for (int code = Unitless; code <= USSurveyFeet; ++code) {
        const auto unit = static_cast<DrawingUnit>(code);
        spellings.emplace(unitName(unit));
        std::istringstream words{std::string(unitSpellings(unit))};
        spellings.insert(std::istream_iterator<std::string>(words), {});
    }
    const auto schema = nlohmann::json::parse(readBytes(pathFromUtf8(RASTERPLAN_SCHEMA)));
    EXPECT_EQ(schema["definitions"]["unit"]["enum"].get<std::set<std::string>>(), spellings);
}

TEST(UnitNames, NoOtherTextIsAUnit) {
    for (const char* text : {"", " ", "-", "Metres per second", "x", "6", "m\n", "m mm"})
        EXPECT_EQ(unitFromName(text), std::nullopt) << text;
}

TEST(UnitNames, MisspeltUnitsAreGuessed) {
    EXPECT_EQ(unitSuggestion("Metters"), " (did you mean \"Meters\"?)");
    EXPECT_EQ(unitSuggestion("milimeter"), " (did you mean \"Millimeters\"?)");
    EXPECT_EQ(unitSuggestion("furlong"), "");
    EXPECT_EQ(unitSuggestion(""), "");
}

TEST(UnitNames, ListHoldsAllInOrder) {
    const std::string names = allUnitNames();
    EXPECT_EQ(names.find("Unitless, Inches, Feet, "), 0U);
    EXPECT_NE(names.find(", Parsecs, USSurveyFeet"), std::string::npos);
}

} // namespace rasterplan_tool
