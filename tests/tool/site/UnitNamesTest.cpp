#include "site/UnitNames.h"

#include <gtest/gtest.h>

namespace rasterplan_tool {

TEST(UnitNames, EveryCodeHasANameThatLeadsBack) {
    for (int code = Unitless; code <= USSurveyFeet; ++code) {
        const auto unit = static_cast<DrawingUnit>(code);
        EXPECT_EQ(unitFromName(unitName(unit)), unit) << code;
    }
    EXPECT_EQ(unitName(Meters), "Meters");
    EXPECT_EQ(unitName(USSurveyFeet), "USSurveyFeet");
}

TEST(UnitNames, NoOtherTextIsAUnit) {
    for (const char* text : {"", "meters", "METERS", "Meter", "m", "Meters ", "6"})
        EXPECT_EQ(unitFromName(text), std::nullopt) << text;
}

TEST(UnitNames, ListHoldsAllInOrder) {
    const std::string names = allUnitNames();
    EXPECT_EQ(names.find("Unitless, Inches, Feet, "), 0U);
    EXPECT_NE(names.find(", Parsecs, USSurveyFeet"), std::string::npos);
}

} // namespace rasterplan_tool
