#include <RasterPlanWriter/DrawingUnit.h>

#include <RasterPlanWriter/ImageParam.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <type_traits>

namespace {

struct UnitRow {
    int value;
    DrawingUnit unit;
    double metres;
};

constexpr UnitRow units[] = {
    {0, Unitless, 1.0},
    {1, Inches, 0.0254},
    {2, Feet, 0.3048},
    {3, Miles, 1609.344},
    {4, Millimeters, 0.001},
    {5, Centimeters, 0.01},
    {6, Meters, 1.0},
    {7, Kilometers, 1000.0},
    {8, Microinches, 2.54e-8},
    {9, Mils, 2.54e-5},
    {10, Yards, 0.9144},
    {11, Angstroms, 1e-10},
    {12, Nanometers, 1e-9},
    {13, Microns, 1e-6},
    {14, Decimeters, 0.1},
    {15, Decameters, 10.0},
    {16, Hectometers, 100.0},
    {17, Gigameters, 1e9},
    {18, AstronomicalUnits, 1.4959787e11},
    {19, LightYears, 9.46053e15},
    {20, Parsecs, 3.085677e16},
    {21, USSurveyFeet, 0.3048006096012192},
};

} // namespace

TEST(DrawingUnit, ValuesAreTheCodesOfTheHeaderVariable) {
    int expected = 0;
    for (const UnitRow& row : units) {
        EXPECT_EQ(row.value, expected);
        EXPECT_EQ(static_cast<int>(row.unit), expected++);
    }
    EXPECT_EQ(expected, 22);
    EXPECT_TRUE((std::is_same_v<std::underlying_type_t<DrawingUnit>, std::int32_t>));
}

TEST(DrawingUnit, EachHasItsLengthInMillimetres) {
    const ImageParam image;
    for (const UnitRow& row : units)
        EXPECT_EQ(image.getSizeInMillimeterOfDrawingUnit(row.unit), row.metres * 1000.0) << row.value;
    EXPECT_EQ(image.getSizeInMillimeterOfDrawingUnit(Unitless), 1000.0);
    EXPECT_EQ(image.getSizeInMillimeterOfDrawingUnit(Meters), 1000.0);
    EXPECT_EQ(image.getSizeInMillimeterOfDrawingUnit(Inches), 25.4);
    EXPECT_EQ(image.getSizeInMillimeterOfDrawingUnit(Millimeters), 1.0);
}

TEST(DrawingUnit, AnyOtherValueIsAsLongAsAMetre) {
    const ImageParam image;
    for (const int value : {22, 1000, -1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
        EXPECT_EQ(image.getSizeInMillimeterOfDrawingUnit(static_cast<DrawingUnit>(value)), 1000.0) << value;
}
