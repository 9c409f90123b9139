#include "dxf/HeaderExtents.h"

#include "dxf/DxfSectionHeader.h"
#include "support/Images.h"
#include "template/DxfError.h"

#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <stdexcept>
#include <string>

using namespace rasterplan;
using namespace rasterplan::test;
using enum TopLevelKey;

namespace {

constexpr const wchar_t* axisKeys[] = {L"#VEXO_EXTVARX_VALUE#", L"#VEXO_EXTVARY_VALUE#",
                                       L"#VEXO_EXTVARZ_VALUE#"};

/// A registry with the three header sections that images change.
class HeaderExtents : public testing::Test {
protected:
    HeaderExtents() {
        registry.fileSection(headerExtMin, DxfHeaderSection_EXTMIN());
        registry.fileSection(headerExtMax, DxfHeaderSection_EXTMAX());
        registry.fileSection(headerInsUnits, DxfHeaderSection_INSUNITS());
    }

    std::wstring extMin() const { return values(headerExtMin); }
    std::wstring extMax() const { return values(headerExtMax); }
    std::wstring unit() const {
        return registry.getSectionValue(headerInsUnits, L"#VEXO_INSUNIT_UNIT_VALUE#");
    }

    DxfSectionRegistry registry;

private:
    std::wstring values(TopLevelKey section) const {
        std::wstring text;
        for (const wchar_t* const key : axisKeys)
            text += (text.empty() ? L"" : L" ") + registry.getSectionValue(section, key);
        return text;
    }
};

std::wstring messageOfUpdate(DxfSectionRegistry& registry, const ImageParam& image) {
    try {
        updateHeaderFromImage(registry, image);
    } catch (const DxfError& error) {
        return error.message();
    }
    return L"none";
}

} // namespace

TEST_F(HeaderExtents, AreThoseOfASingleImage) {
    updateHeaderFromImage(registry, levelImage({1, 2, 3}, 1, 0.5));
    EXPECT_EQ(extMin(), L"1.00000000000000000 2.00000000000000000 3.00000000000000000");
    EXPECT_EQ(extMax(), L"2.00000000000000000 2.50000000000000000 3.00000000000000000");
}

TEST_F(HeaderExtents, StayAtZeroAboveImagesBelowZero) {
    updateHeaderFromImage(registry, levelImage({-10, 1, -5}, 4, 2));
    EXPECT_EQ(extMin(), L"-10.00000000000000000 1.00000000000000000 -5.00000000000000000");
    EXPECT_EQ(extMax(), L"0.00000000000000000 3.00000000000000000 0.00000000000000000");
}

TEST_F(HeaderExtents, MinimumIsTheLeastLeftBottomCornerOfEachAxis) {
    updateHeaderFromImage(registry, levelImage({5, -2, 3}, 1, 1));
    updateHeaderFromImage(registry, levelImage({4, 7, 3}, 1, 1));
    // U and V point towards lower coordinates, but only the left-bottom corner counts.
    updateHeaderFromImage(registry, imageAt({9, -90, 9}, {9, 9, 9}, {-90, 9, 9}));
    EXPECT_EQ(extMin(), L"4.00000000000000000 -2.00000000000000000 3.00000000000000000");
}

TEST_F(HeaderExtents, FarCornerCountsOnlyWhereTheTestValueIsAbove) {
    updateHeaderFromImage(registry, levelImage({0, 0, 0}, 100, 10));
    EXPECT_EQ(extMax(), L"100.00000000000000000 10.00000000000000000 0.00000000000000000");
    // Its far corner is (250, 15), its test value (51, 11).
    updateHeaderFromImage(registry, levelImage({50, 10, 0}, 200, 5));
    EXPECT_EQ(extMax(), L"100.00000000000000000 15.00000000000000000 0.00000000000000000");
}

TEST_F(HeaderExtents, LowerFarCornerReplacesAHigherOneBelowTheTestValue) {
    updateHeaderFromImage(registry, levelImage({0, 0, 0}, 100, 1));
    updateHeaderFromImage(registry, levelImage({99.5, 0, 0}, 0.25, 1));
    EXPECT_EQ(extMax(), L"99.75000000000000000 1.00000000000000000 0.00000000000000000");
}

TEST_F(HeaderExtents, EqualTestValueChangesNothing) {
    updateHeaderFromImage(registry, levelImage({0, 0, 0}, 8, 8));
    updateHeaderFromImage(registry, levelImage({7, 7, 0}, 3, 3));
    EXPECT_EQ(extMax(), L"8.00000000000000000 8.00000000000000000 0.00000000000000000");
}

TEST_F(HeaderExtents, LastImageDecidesTheUnit) {
    ImageParam image = levelImage({0, 0, 0}, 1, 1);
    image.setDrawingUnit(Millimeters);
    updateHeaderFromImage(registry, image);
    EXPECT_EQ(unit(), L"4");
    image.setDrawingUnit(USSurveyFeet);
    updateHeaderFromImage(registry, image);
    EXPECT_EQ(unit(), L"21");
    image.setDrawingUnit(Unitless);
    updateHeaderFromImage(registry, image);
    EXPECT_EQ(unit(), L"0");
}

TEST_F(HeaderExtents, EmptyMinimumIsNamedAndNothingChanges) {
    for (const wchar_t* const key : axisKeys) {
        registry.setSectionValue(headerExtMin, key, L"");
        const std::wstring minimum = extMin();
        EXPECT_EQ(messageOfUpdate(registry, levelImage({1, 2, 3}, 1, 1)),
                  L"Failure while setting Map: VEXO_HEADER_EXTMIN");
        EXPECT_EQ(extMin(), minimum);
        registry.setSectionValue(headerExtMin, key, 1e9);
    }
    EXPECT_EQ(extMax(), L"0.00000000000000000 0.00000000000000000 0.00000000000000000");
    EXPECT_EQ(unit(), L"6");
}

TEST_F(HeaderExtents, EmptyMaximumIsNamedAndTheMinimumStays) {
    for (const wchar_t* const key : axisKeys) {
        registry.setSectionValue(headerExtMax, key, L"");
        EXPECT_EQ(messageOfUpdate(registry, levelImage({1, 2, 3}, 1, 1)),
                  L"Failure while setting Map: VEXO_HEADER_EXMAX");
        registry.setSectionValue(headerExtMax, key, 0.0);
    }
    EXPECT_EQ(extMin(), L"1.00000000000000000 2.00000000000000000 3.00000000000000000");
    EXPECT_EQ(extMax(), L"0.00000000000000000 0.00000000000000000 0.00000000000000000");
}

TEST(HeaderExtentsWithoutSections, AreNamed) {
    DxfSectionRegistry registry;
    const ImageParam image = levelImage({1, 2, 3}, 1, 1);
    EXPECT_EQ(messageOfUpdate(registry, image), L"Failure while setting Map: VEXO_HEADER_EXTMIN");
    registry.fileSection(headerExtMin, DxfHeaderSection_EXTMIN());
    EXPECT_EQ(messageOfUpdate(registry, image), L"Failure while setting Map: VEXO_HEADER_EXMAX");
    registry.fileSection(headerExtMax, DxfHeaderSection_EXTMAX());
    EXPECT_EQ(messageOfUpdate(registry, image), L"Failure while setting Map.");
    EXPECT_EQ(registry.getSectionValue(headerExtMax, L"#VEXO_EXTVARX_VALUE#"), L"2.00000000000000000");
    registry.fileSection(headerInsUnits, DxfHeaderSection_INSUNITS());
    EXPECT_EQ(messageOfUpdate(registry, image), L"none");
}

TEST(HeaderExtentsWithoutSections, NullSectionIsAnError) {
    const ImageParam image = levelImage({1, 2, 3}, 1, 1);
    DxfSectionRegistry withoutMinimum;
    withoutMinimum.fileSection(headerExtMin, std::nullopt);
    EXPECT_EQ(messageOfUpdate(withoutMinimum, image), L"Section NUll pointer");
    DxfSectionRegistry withoutMaximum;
    withoutMaximum.fileSection(headerExtMin, DxfHeaderSection_EXTMIN());
    withoutMaximum.fileSection(headerExtMax, std::nullopt);
    EXPECT_EQ(messageOfUpdate(withoutMaximum, image), L"Section NUll pointer");
}

TEST_F(HeaderExtents, StoredTextMustReadAsANumber) {
    const ImageParam image = levelImage({1, 2, 3}, 1, 1);
    for (const TopLevelKey section : {headerExtMin, headerExtMax}) {
        registry.setSectionValue(section, L"#VEXO_EXTVARY_VALUE#", L"wide");
        try {
            updateHeaderFromImage(registry, image);
            ADD_FAILURE() << "no number was needed";
        } catch (const std::invalid_argument& error) {
            EXPECT_STREQ(error.what(), "invalid stod argument");
        }
        registry.setSectionValue(section, L"#VEXO_EXTVARY_VALUE#", L"1e999");
        try {
            updateHeaderFromImage(registry, image);
            ADD_FAILURE() << "no range was needed";
        } catch (const std::out_of_range& error) {
            EXPECT_STREQ(error.what(), "stod argument out of range");
        }
        registry.setSectionValue(section, L"#VEXO_EXTVARY_VALUE#", L" 2 m");
    }
    updateHeaderFromImage(registry, image);
    EXPECT_EQ(extMin(), L"1.00000000000000000  2 m 3.00000000000000000");
    EXPECT_EQ(extMax(), L"2.00000000000000000 3.00000000000000000 3.00000000000000000");
}

TEST_F(HeaderExtents, CoordinateThatIsNoNumberIsNotTaken) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    updateHeaderFromImage(registry, imageAt({nan, 1, 0}, {nan, 0, 0}, {nan, 0, 1}));
    EXPECT_EQ(extMax(), L"0.00000000000000000 0.00000000000000000 0.00000000000000000");
    EXPECT_EQ(extMin().substr(0, 6), L"179769");
}

TEST_F(HeaderExtents, AreWrittenInFullForSurveyCoordinates) {
    updateHeaderFromImage(registry, levelImage({3512345.1, 5401234.7, 0.1}, 20.3, 10.4));
    EXPECT_EQ(extMin(), L"3512345.10000000009313226 5401234.70000000018626451 0.10000000000000001");
    EXPECT_EQ(extMax(), L"3512365.39999999990686774 5401245.10000000055879354 0.10000000000000001");
}

TEST_F(HeaderExtents, FarCornerIsAddedFromTheWidthOn) {
    updateHeaderFromImage(registry, imageAt({-0.4, 12.0, 5.1}, {0.9, 8.4, -0.1}, {2.8, 13.7, -0.4}));
    EXPECT_EQ(extMax(), L"1.49999999999999978 17.30000000000000071 4.79999999999999893");
}

TEST_F(HeaderExtents, TestAddsUToTheCornerFirst) {
    // U and V added first give the corner's x with the other sign: then zero would not be passed.
    const double x = -0x1.3352ad194722ap-1;
    updateHeaderFromImage(registry, imageAt({x - 0.34, 2.94, 0}, {x, 2, 0}, {x + 0.94, 2.34, 0}));
    EXPECT_EQ(registry.getSectionValue(headerExtMax, axisKeys[0]), L"-0.00024014409606732");
}
