#include "dxf/DxfViewPortObj.h"

#include "dxf/DxfSectionTable_VPORT.h"
#include "math/MathError.h"
#include "support/Images.h"
#include "template/DxfError.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>

using namespace rasterplan;
using namespace rasterplan::test;

namespace {

/// What the viewport writes, without the zeros at the end of each number.
struct View {
    std::wstring direction;
    std::wstring target;
    std::wstring twist;
    std::wstring height;
    std::wstring ratio;

    friend bool operator==(const View&, const View&) = default;
    friend void PrintTo(const View& view, std::ostream* out) {
        for (const std::wstring& text : {view.direction, view.target, view.twist, view.height, view.ratio})
            *out << testing::PrintToString(text) << '\n';
    }
};

View viewOf(const DxfViewPortObj& viewport) {
    DxfSectionRegistry registry;
    registry.fileSection(TopLevelKey::tableVPort, viewport.createSection());
    viewport.fillSections(registry);
    const auto value = [&](const std::wstring& name) {
        const std::wstring key = L"#VEXO_TABLE_VPORT" + name + L"#";
        const std::wstring text = registry.getSectionValue(TopLevelKey::tableVPort, std::wstring_view(key));
        const std::size_t point = text.find(L'.');
        EXPECT_EQ(text.size() - point, 18u) << testing::PrintToString(text);
        return text.substr(0, text.find_last_not_of(L'0') + 1);
    };
    return {value(L"VIEWDIR_X") + L" " + value(L"VIEWDIR_Y") + L" " + value(L"VIEWDIR_Z"),
            value(L"VIEWTARGETPNT_X") + L" " + value(L"VIEWTARGETPNT_Y") + L" " + value(L"VIEWTARGETPNT_Z"),
            value(L"TWIST"), value(L"VIEWHEIGHT"), value(L"VIEWRATIO")};
}

/// U is x and V is z: a wall that faces the negative y direction.
ImageParam wall(const TripleDouble& leftBottom, double width, double height) {
    const TripleDouble& corner = leftBottom;
    return imageAt({corner.x, corner.y, corner.z + height}, corner, {corner.x + width, corner.y, corner.z});
}

} // namespace

TEST(DxfViewPortObj, CreatesAViewportSection) {
    EXPECT_EQ(DxfViewPortObj().createSection().render(), DxfSectionTable_VPORT().render());
}

TEST(DxfViewPortObj, TakesNoHandle) {
    DxfSectionRegistry registry;
    DxfViewPortObj viewport;
    viewport.assignHandles(registry);
    EXPECT_EQ(registry.nextHandle(), 126);
}

TEST(DxfViewPortObj, ShowsASingleImage) {
    DxfViewPortObj viewport;
    viewport.addImage(levelImage({0, 0, 0}, 4, 2));
    EXPECT_EQ(viewOf(viewport), (View{L"0. 0. 1.", L"2. 1. 0.", L"0.", L"2.", L"2."}));
}

TEST(DxfViewPortObj, WritesOnlyItsComputedValues) {
    DxfSectionRegistry registry;
    DxfViewPortObj viewport;
    viewport.addImage(levelImage({0, 0, 0}, 4, 2));
    registry.fileSection(TopLevelKey::tableVPort, viewport.createSection());
    viewport.fillSections(registry);
    EXPECT_EQ(
        registry.renderPlaceholder(L"#VEXO_TABLE_VPORT#"),
        L"0\nVPORT\n5\n29\n100\nAcDbSymbolTableRecord\n100\nAcDbViewportTableRecord\n2\n*ACTIVE\n70\n0\n"
        L"10\n0\n20\n0\n11\n1.0\n21\n1.0\n12\n0.0\n22\n0.0\n13\n0.0\n23\n0.0\n14\n0.5\n24\n0.5\n"
        L"15\n0.5\n25\n0.5\n"
        L"16\n0.00000000000000000\n26\n0.00000000000000000\n36\n1.00000000000000000\n"
        L"17\n2.00000000000000000\n27\n1.00000000000000000\n37\n0.00000000000000000\n"
        L"40\n2.00000000000000000\n41\n2.00000000000000000\n"
        L"42\n50.0\n43\n0.0\n44\n0.0\n50\n0.0\n51\n0.00000000000000000\n"
        L"71\n0.0\n72\n100\n73\n1\n74\n3\n75\n0\n76\n0\n77\n0\n78\n0\n");
}

TEST(DxfViewPortObj, SecondImageWidensTheView) {
    DxfViewPortObj viewport;
    viewport.addImage(levelImage({0, 0, 0}, 4, 2));
    viewport.addImage(levelImage({6, 0, 0}, 4, 2));
    EXPECT_EQ(viewOf(viewport), (View{L"0. 0. 1.", L"5. 1. 0.", L"0.", L"2.", L"5."}));
}

TEST(DxfViewPortObj, TargetLiesBetweenTheDepthsOfTheImages) {
    DxfViewPortObj viewport;
    viewport.addImage(levelImage({0, 0, 2}, 4, 2));
    viewport.addImage(levelImage({0, 0, 8}, 4, 4));
    EXPECT_EQ(viewOf(viewport), (View{L"0. 0. 1.", L"2. 2. 5.", L"0.", L"4.", L"1."}));
}

TEST(DxfViewPortObj, LooksAtAWallFromItsFront) {
    DxfViewPortObj viewport;
    viewport.addImage(wall({1, 2, 3}, 4, 2));
    EXPECT_EQ(viewOf(viewport), (View{L"0. -1. 0.", L"3. 2. 4.", L"-90.", L"2.", L"2."}));
}

TEST(DxfViewPortObj, FirstImageDecidesDirectionAndTwist) {
    DxfViewPortObj viewport;
    viewport.addImage(wall({1, 2, 3}, 4, 2));
    viewport.addImage(levelImage({1, 2, 3}, 8, 1));
    const View view = viewOf(viewport);
    EXPECT_EQ(view.direction, L"0. -1. 0.");
    EXPECT_EQ(view.twist, L"-90.");
    EXPECT_EQ(view.ratio, L"4.");
}

TEST(DxfViewPortObj, DegreesComeFromOneFactor) {
    DxfViewPortObj viewport;
    viewport.addImage(imageAt({-6.8, -3.0, 4.0}, {1.5, -5.3, 2.0}, {1.2, -4.5, -0.8}));
    const View view = viewOf(viewport);
    EXPECT_EQ(view.twist, L"-37.94947690438901589"); // times 180 and then by pi it ends on 0878
    EXPECT_EQ(view.target, L"-2.8000000000000016 -3.74999999999999956 1.59999999999999987");
}

TEST(DxfViewPortObj, FlatImageIsNotTwisted) {
    DxfViewPortObj viewport;
    viewport.addImageFlat(wall({1, 2, 3}, 4, 2));
    EXPECT_EQ(viewOf(viewport), (View{L"0. -1. 0.", L"3. 2. 4.", L"0.", L"2.", L"2."}));
}

TEST(DxfViewPortObj, WithoutImagesShowsTheEmptyBox) {
    EXPECT_EQ(viewOf(DxfViewPortObj()), (View{L"0. 0. 0.", L"0. 0. 0.", L"0.", L"8589934590.", L"1."}));
}

TEST(DxfViewPortObj, PlaneThatIsNotParallelToAKnownDirectionIsRefused) {
    // The first image gives a direction, but none of its corners is a number in its plane.
    const double nan = std::numeric_limits<double>::quiet_NaN();
    DxfViewPortObj viewport;
    viewport.addImage(imageAt({1, 3, 3}, {1, 2, 3}, {nan, 2, 3}));
    try {
        viewport.addImage(levelImage({0, 0, 0}, 4, 2));
        ADD_FAILURE() << "the image was taken";
    } catch (const DxfError& error) {
        EXPECT_EQ(error.message(), L"DxfViewPortObj: Non parallel plane not allowed.");
    }
}

TEST(DxfViewPortObj, SingularFrameIsRefused) {
    DxfViewPortObj viewport;
    EXPECT_THROW(viewport.addImage(imageAt({2, 0, 0}, {0, 0, 0}, {1, 0, 0})), ErrorNR);
}

TEST(DxfViewPortObj, MissingSectionIsNamed) {
    DxfSectionRegistry registry;
    try {
        DxfViewPortObj().fillSections(registry);
        ADD_FAILURE() << "no section was needed";
    } catch (const DxfError& error) {
        EXPECT_EQ(error.message(), L"Failure while setting Map:#VEXO_TABLE_VPORT#");
    }
}

TEST(DxfViewPortObj, AllValuesAreTriedBeforeAFailureIsReported) {
    static constexpr RecordTable lastRow({{L"#VEXO_TABLE_VPORTVIEWRATIO#", "", filled}});
    static constexpr SectionTable lastLine = lastRow.table();
    DxfSectionRegistry registry;
    registry.fileSection(TopLevelKey::tableVPort, DxfSection(lastLine));
    EXPECT_THROW(DxfViewPortObj().fillSections(registry), DxfError);
    EXPECT_EQ(registry.renderPlaceholder(L"#VEXO_TABLE_VPORT#"), L"1.00000000000000000\n");
}

TEST(DxfViewPortObj, CloneIsIndependent) {
    DxfViewPortObj viewport;
    viewport.addImage(wall({1, 2, 3}, 4, 2));
    const std::unique_ptr<DxfEntity> clone = viewport.clone();
    auto& copy = dynamic_cast<DxfViewPortObj&>(*clone);
    const View before = viewOf(viewport);
    EXPECT_EQ(viewOf(copy), before);
    viewport.addImage(wall({11, 2, 3}, 4, 2));
    EXPECT_EQ(viewOf(copy), before);
    EXPECT_NE(viewOf(viewport), before);
    copy = viewport;
    EXPECT_EQ(viewOf(copy), viewOf(viewport));
}
