#include "dxf/DxfImageObj.h"

#include "dxf/DxfSectionHeader.h"
#include "dxf/DxfSectionImageEntity.h"
#include "dxf/DxfSectionObjects_DICTIONARY.h"
#include "dxf/DxfSectionObjects_IMAGEDEF.h"
#include "dxf/DxfSectionObjects_IMAGEDEFREACTOR.h"
#include "math/MathError.h"
#include "support/Images.h"
#include "template/DxfError.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <utility>

using namespace rasterplan;
using namespace rasterplan::test;
using enum TopLevelKey;

namespace {

/// A picture of 640 x 480 pixels, 64 to the metre.
const ImageParam picture = imageAt({1, 9.5, 3}, {1, 2, 3}, {11, 2, 3}, 64.0, L"C:\\site\\S\u00FCd.png");

/// Files new sections for `images` images as a document has them, except for one key.
void fileSections(DxfSectionRegistry& registry, std::int32_t images,
                  std::optional<TopLevelKey> without = std::nullopt) {
    const auto file = [&](TopLevelKey key, DxfSection section) {
        if (key != without)
            registry.fileSection(key, std::move(section));
    };
    const auto fileNumbered = [&](TopLevelKey key, DxfSection section) {
        if (key != without)
            registry.fileSection(registry.makeInstanceKey(key), std::move(section));
    };
    file(headerExtMin, DxfHeaderSection_EXTMIN());
    file(headerExtMax, DxfHeaderSection_EXTMAX());
    file(headerInsUnits, DxfHeaderSection_INSUNITS());
    file(objectDictionary, DxfSectionObjects_DICTIONARY(images));
    for (std::int32_t i = 0; i < images; ++i) {
        fileNumbered(objectImageDefReactor, DxfSectionObjects_IMAGEDEFREACTOR());
        fileNumbered(objectImageDef, DxfSectionObjects_IMAGEDEF());
        fileNumbered(entityImage, DxfSectionImageEntity());
    }
}

/// The image with the key of its entity's section.
DxfImageObj numbered(const ImageParam& image, std::int32_t number) {
    DxfImageObj object(image, static_cast<std::uint32_t>(number));
    object.setSectionKey({entityImage, number});
    return object;
}

std::wstring messageOfFill(DxfSectionRegistry& registry, const DxfImageObj& object) {
    try {
        object.fillSections(registry);
    } catch (const DxfError& error) {
        return error.message();
    }
    return L"none";
}

MathMatrix matrixOf(const double (&rows)[4][4]) {
    MathMatrix matrix(4, 4);
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            matrix(row, column) = rows[row][column];
    return matrix;
}

void expectPoint(const MathPoint3d& actual, const MathPoint3d& expected) {
    EXPECT_NEAR(actual.x, expected.x, 1e-12);
    EXPECT_NEAR(actual.y, expected.y, 1e-12);
    EXPECT_NEAR(actual.z, expected.z, 1e-12);
}

} // namespace

TEST(DxfImageObj, CreatesAnImageSection) {
    EXPECT_EQ(DxfImageObj(picture, 1).createSection().render(), DxfSectionImageEntity().render());
}

TEST(DxfImageObj, TakesHandlesForEntityDefinitionAndReactor) {
    DxfSectionRegistry registry;
    fileSections(registry, 1);
    DxfImageObj object = numbered(picture, 1);
    for (int i = 0; i < 2; ++i)
        registry.nextHandle();
    object.assignHandles(registry);
    EXPECT_EQ(registry.nextHandle(), 131);
    object.fillSections(registry);
    EXPECT_EQ(registry.getSectionValue({entityImage, 1}, L"#VEXO_ENTITYIMAGE_HANDLE#"), L"80");
    EXPECT_EQ(registry.getSectionValue({objectImageDef, 1}, L"#VEXO_OBJHANDLE#"), L"81");
    EXPECT_EQ(registry.getSectionValue({objectImageDefReactor, 1}, L"#VEXO_OBJIMAGEDEFREACTORHANDLE#"),
              L"82");

    object.assignHandles(registry);
    object.fillSections(registry);
    EXPECT_EQ(registry.getSectionValue({entityImage, 1}, L"#VEXO_ENTITYIMAGE_HANDLE#"), L"84");
}

TEST(DxfImageObj, FillsItsEntity) {
    DxfSectionRegistry registry;
    fileSections(registry, 1);
    DxfImageObj object = numbered(picture, 1);
    object.assignHandles(registry);
    object.fillSections(registry);
    EXPECT_EQ(registry.renderPlaceholder(L"#VEXO_ENTITY_IMAGE#"),
              L"0\nIMAGE\n5\n7E\n330\n2\n100\nAcDbEntity\n8\n0\n160\n140\n100\nAcDbRasterImage\n90\n0\n"
              L"10\n1.00000000000000000\n20\n2.00000000000000000\n30\n3.00000000000000000\n"
              L"11\n0.01562500000000000\n21\n0.00000000000000000\n31\n0.00000000000000000\n"
              L"12\n0.00000000000000000\n22\n0.01562500000000000\n32\n0.00000000000000000\n"
              L"13\n640.00000000000000000\n23\n480.00000000000000000\n"
              L"340\n7F\n70\n15\n280\n0\n281\n50\n282\n50\n283\n0\n290\n0\n360\n80\n"
              L"71\n1\n91\n2\n14\n-0.5\n24\n-0.5\n"
              L"14\n639.50000000000000000\n24\n479.50000000000000000\n");
}

TEST(DxfImageObj, FillsItsObjects) {
    DxfSectionRegistry registry;
    fileSections(registry, 1);
    DxfImageObj object = numbered(picture, 1);
    object.assignHandles(registry);
    object.fillSections(registry);
    EXPECT_EQ(registry.renderPlaceholder(L"#VEXO_OBJECT_IMAGEDEF#"),
              L"0\nIMAGEDEF\n5\n7F\n102\n{ACAD_REACTORS\n330\n5A\n330\n80\n102\n}\n330\n5A\n"
              L"100\nAcDbRasterImageDef\n90\n0\n"
              L"1\nC:\\site\\S\u00FCd.png\n"
              L"10\n640.00000000000000000\n20\n480.00000000000000000\n"
              L"11\n15.62500000000000000\n21\n15.62500000000000000\n"
              L"280\n1\n281\n5\n");
    EXPECT_EQ(registry.renderPlaceholder(L"#VEXO_OBJECT_IMAGEDEFREACTOR#"),
              L"0\nIMAGEDEF_REACTOR\n5\n80\n330\n7E\n100\nAcDbRasterImageDefReactor\n90\n2\n330\n7E\n");
    EXPECT_EQ(registry.renderPlaceholder(L"#VEXO_OBJECT_DICTIONARY#"),
              L"0\nDICTIONARY\n5\n5A\n102\n{ACAD_REACTORS\n330\n9\n102\n}\n330\n9\n100\nAcDbDictionary\n"
              L"281\n1\n3\nS\u00FCd.png\n350\n7F\n");
}

TEST(DxfImageObj, FillsTheHeader) {
    DxfSectionRegistry registry;
    fileSections(registry, 1);
    numbered(picture, 1).fillSections(registry);
    EXPECT_EQ(registry.renderPlaceholder(L"#VEXO_HEADER_EXTMIN#"),
              L"9\n$EXTMIN\n10\n1.00000000000000000\n20\n2.00000000000000000\n30\n3.00000000000000000\n");
    EXPECT_EQ(registry.renderPlaceholder(L"#VEXO_HEADER_EXTMAX#"),
              L"9\n$EXTMAX\n10\n11.00000000000000000\n20\n9.50000000000000000\n30\n3.00000000000000000\n");
    EXPECT_EQ(registry.renderPlaceholder(L"#VEXO_HEADER_INSUNITS#"), L"9\n$INSUNITS\n70\n6\n");
}

TEST(DxfImageObj, SecondImageFillsTheSecondSections) {
    DxfSectionRegistry registry;
    fileSections(registry, 3);
    DxfImageObj object = numbered(picture, 2);
    object.assignHandles(registry);
    object.fillSections(registry);
    EXPECT_EQ(registry.getSectionValue(L"#VEXO_ENTITY_IMAGE#2", L"#VEXO_ENTITYIMAGE_HANDLE#"), L"7E");
    EXPECT_EQ(registry.getSectionValue(L"#VEXO_OBJECT_IMAGEDEF#2", L"#VEXO_OBJHANDLE#"), L"7F");
    EXPECT_EQ(registry.getSectionValue(L"#VEXO_OBJECT_IMAGEDEFREACTOR#2", L"#VEXO_OBJIMAGEDEFREACTORHANDLE#"),
              L"80");
    EXPECT_EQ(registry.getSectionValue(objectDictionary, L"#VEXO_OBJ_NAMEOBJ#2"), L"S\u00FCd.png");
    EXPECT_EQ(registry.getSectionValue(objectDictionary, L"#VEXO_OBJ_HANDLEOBJ#2"), L"7F");
    for (const std::int32_t other : {1, 3}) {
        EXPECT_EQ(registry.getSectionValue({entityImage, other}, L"#VEXO_ENTITYIMAGE_HANDLE#"), L"");
        EXPECT_EQ(registry.getSectionValue({objectImageDef, other}, L"#VEXO_OBJHANDLE#"), L"59");
    }
    EXPECT_EQ(registry.getSectionValue(objectDictionary, L"#VEXO_OBJ_NAMEOBJ#1"), L"");
    EXPECT_EQ(registry.getSectionValue(objectDictionary, L"#VEXO_OBJ_NAMEOBJ#3"), L"");
}

TEST(DxfImageObj, WithoutPathWritesNoNames) {
    for (const wchar_t* const path : {static_cast<const wchar_t*>(nullptr), L""}) {
        DxfSectionRegistry registry;
        fileSections(registry, 1);
        DxfImageObj object = numbered(imageAt({0, 1, 0}, {0, 0, 0}, {1, 0, 0}, 100.0, path), 1);
        object.fillSections(registry);
        EXPECT_EQ(registry.getSectionValue({objectImageDef, 1}, L"#VEXO_OBJ_FILENAME#"), L"");
        EXPECT_EQ(registry.getSectionValue(objectDictionary, L"#VEXO_OBJ_NAMEOBJ#1"), L"");
    }
}

TEST(DxfImageObj, WritesNoHandlesBeforeTheyAreAssigned) {
    DxfSectionRegistry registry;
    fileSections(registry, 1);
    numbered(picture, 1).fillSections(registry);
    EXPECT_EQ(registry.getSectionValue({entityImage, 1}, L"#VEXO_ENTITYIMAGE_HANDLE#"), L"");
    EXPECT_EQ(registry.getSectionValue({entityImage, 1}, L"#VEXO_ENTITYIMAGE_OBJPOINTER#"), L"");
    EXPECT_EQ(registry.getSectionValue({entityImage, 1}, L"#VEXO_ENTITYIMAGE_HANDLEIMGDEFREACTOR#"), L"");
    EXPECT_EQ(registry.getSectionValue({objectImageDef, 1}, L"#VEXO_OBJHANDLE#"), L"");
    EXPECT_EQ(registry.getSectionValue({objectImageDef, 1}, L"#VEXO_OBJ_REACTORHANDLE#"), L"");
    EXPECT_EQ(registry.getSectionValue(objectDictionary, L"#VEXO_OBJ_HANDLEOBJ#1"), L"");
}

TEST(DxfImageObj, FractionsOfPixelsStay) {
    DxfSectionRegistry registry;
    fileSections(registry, 1);
    numbered(imageAt({0, 2, 0}, {0, 0, 0}, {1, 0, 0}, 0.25), 1).fillSections(registry);
    EXPECT_EQ(registry.getSectionValue({entityImage, 1}, L"#VEXO_ENTITYIMAGE_IMGSIZEU#"),
              L"0.25000000000000000");
    EXPECT_EQ(registry.getSectionValue({entityImage, 1}, L"#VEXO_ENTITYIMAGE_CLIPBOUNDVERTX2#"),
              L"-0.25000000000000000");
    EXPECT_EQ(registry.getSectionValue({entityImage, 1}, L"#VEXO_ENTITYIMAGE_UVECX#"),
              L"4.00000000000000000");
}

TEST(DxfImageObj, PixelVectorsAreEdgesDividedByTheirPixels) {
    DxfSectionRegistry registry;
    fileSections(registry, 1);
    numbered(imageAt({13.7, 5.0, 5.1}, {7.3, 1.7, 3.7}, {7.0, 2.3, 11.0}, 0.37), 1).fillSections(registry);
    std::wstring vectors;
    for (const wchar_t* const name : {L"UVECX", L"UVECY", L"UVECZ", L"VVECX", L"VVECY", L"VVECZ"}) {
        const std::wstring key = std::wstring(L"#VEXO_ENTITYIMAGE_") + name + L"#";
        vectors += registry.getSectionValue({entityImage, 1}, std::wstring_view(key)) + L" ";
    }
    EXPECT_EQ(vectors, L"-0.11060396589049121 0.22120793178098250 2.69136317000195424 "
                       L"2.35801603408584048 1.21585201757551165 0.51581600745627743 ");
}

TEST(DxfImageObj, LongNumbersAreCutOffAtNinetyNineCharacters) {
    DxfSectionRegistry registry;
    fileSections(registry, 1);
    numbered(imageAt({0, 1e90, 0}, {0, 0, 0}, {1e90, 0, 0}, 1.0), 1).fillSections(registry);
    const std::wstring size = registry.getSectionValue({entityImage, 1}, L"#VEXO_ENTITYIMAGE_IMGSIZEU#");
    EXPECT_EQ(size.size(), 99u);
    EXPECT_EQ(size.substr(0, 20), L"99999999999999996648");
    EXPECT_EQ(size.substr(89), L"4.00000000");
}

TEST(DxfImageObj, MissingEntityIsNamedByItsKey) {
    DxfSectionRegistry registry;
    fileSections(registry, 1, entityImage);
    DxfImageObj object(picture, 1);
    EXPECT_EQ(messageOfFill(registry, object), L"Failure while setting Map:");
    object.setSectionKey({entityImage, 7});
    EXPECT_EQ(messageOfFill(registry, object), L"Failure while setting Map:#VEXO_ENTITY_IMAGE#7");
    // The objects come behind the entity.
    EXPECT_EQ(registry.getSectionValue({objectImageDef, 1}, L"#VEXO_OBJ_FILENAME#"), L"");
}

TEST(DxfImageObj, MissingDefinitionIsNamedAndStopsTheFill) {
    DxfSectionRegistry registry;
    fileSections(registry, 1, objectImageDef);
    DxfImageObj object = numbered(picture, 1);
    object.assignHandles(registry);
    EXPECT_EQ(messageOfFill(registry, object), L"Failure while setting Map:#VEXO_OBJECT_IMAGEDEF#1");
    EXPECT_EQ(registry.getSectionValue({entityImage, 1}, L"#VEXO_ENTITYIMAGE_HANDLE#"), L"7E");
    EXPECT_EQ(registry.getSectionValue({objectImageDefReactor, 1}, L"#VEXO_OBJIMAGEDEFREACTORHANDLE#"),
              L"5B");
}

TEST(DxfImageObj, MissingReactorIsNamedAndStopsTheFill) {
    DxfSectionRegistry registry;
    fileSections(registry, 1, objectImageDefReactor);
    DxfImageObj object = numbered(picture, 1);
    object.assignHandles(registry);
    EXPECT_EQ(messageOfFill(registry, object), L"Failure while setting Map:#VEXO_OBJECT_IMAGEDEFREACTOR#1");
    EXPECT_EQ(registry.getSectionValue({objectImageDef, 1}, L"#VEXO_OBJHANDLE#"), L"7F");
    EXPECT_EQ(registry.getSectionValue(objectDictionary, L"#VEXO_OBJ_HANDLEOBJ#1"), L"");
}

TEST(DxfImageObj, MissingDictionaryEntryIsNamedByTheDefinition) {
    DxfSectionRegistry withoutDictionary;
    fileSections(withoutDictionary, 1, objectDictionary);
    EXPECT_EQ(messageOfFill(withoutDictionary, numbered(picture, 1)),
              L"Failure while setting Map:#VEXO_OBJECT_IMAGEDEF#1");

    DxfSectionRegistry withoutEntry;
    fileSections(withoutEntry, 2, objectDictionary);
    withoutEntry.fileSection(objectDictionary, DxfSectionObjects_DICTIONARY(1));
    EXPECT_EQ(messageOfFill(withoutEntry, numbered(picture, 1)), L"none");
    EXPECT_EQ(messageOfFill(withoutEntry, numbered(picture, 2)),
              L"Failure while setting Map:#VEXO_OBJECT_IMAGEDEF#2");
}

TEST(DxfImageObj, MissingHeaderComesFirst) {
    DxfSectionRegistry registry;
    fileSections(registry, 1, headerExtMin);
    DxfImageObj object = numbered(picture, 1);
    object.assignHandles(registry);
    EXPECT_EQ(messageOfFill(registry, object), L"Failure while setting Map: VEXO_HEADER_EXTMIN");
    EXPECT_EQ(registry.getSectionValue({entityImage, 1}, L"#VEXO_ENTITYIMAGE_HANDLE#"), L"");
}

TEST(DxfImageObj, AllValuesOfTheEntityAreTriedBeforeAFailureIsReported) {
    static constexpr RecordTable lastRow({{L"#VEXO_ENTITYIMAGE_CLIPBOUNDVERTY2#", "", filled}});
    static constexpr SectionTable lastLine = lastRow.table();
    DxfSectionRegistry registry;
    fileSections(registry, 1, entityImage);
    registry.fileSection(registry.makeInstanceKey(entityImage), DxfSection(lastLine));
    EXPECT_EQ(messageOfFill(registry, numbered(picture, 1)),
              L"Failure while setting Map:#VEXO_ENTITY_IMAGE#1");
    EXPECT_EQ(registry.renderPlaceholder(L"#VEXO_ENTITY_IMAGE#"), L"479.50000000000000000\n");
}

TEST(DxfImageObj, AllValuesOfAnObjectAreTriedBeforeAFailureIsReported) {
    static constexpr RecordTable lastRow({{L"#VEXO_OBJ_PIXELSIZEV#", "", filled}});
    static constexpr SectionTable lastLine = lastRow.table();
    DxfSectionRegistry registry;
    fileSections(registry, 1, objectImageDef);
    registry.fileSection(registry.makeInstanceKey(objectImageDef), DxfSection(lastLine));
    EXPECT_EQ(messageOfFill(registry, numbered(picture, 1)),
              L"Failure while setting Map:#VEXO_OBJECT_IMAGEDEF#1");
    EXPECT_EQ(registry.renderPlaceholder(L"#VEXO_OBJECT_IMAGEDEF#"), L"15.62500000000000000\n");
}

TEST(DxfImageObj, FrameTakesWorldDirectionsToImageAxes) {
    const DxfImageObj object(imageAt({1, 2, 5}, {1, 2, 3}, {5, 2, 3}), 1);
    EXPECT_EQ(*object.getImageFrame(), matrixOf({{1, 0, 0, 0}, {0, 0, 1, 0}, {0, -1, 0, 0}, {0, 0, 0, 1}}));
}

TEST(DxfImageObj, PlaneGoesThroughTheLeftBottomCorner) {
    const MathPlane plane = DxfImageObj(imageAt({1, 2, 5}, {1, 2, 3}, {5, 2, 3}), 1).getImagePlane();
    EXPECT_EQ(plane.normal(), MathVector3d(0, -1, 0));
    EXPECT_EQ(plane.project({7, 8, 9}), MathPoint3d(7, 2, 9));
    EXPECT_THROW(DxfImageObj(imageAt({2, 0, 0}, {0, 0, 0}, {1, 0, 0}), 1).getImagePlane(),
                 MathErrorZerovector);
}

TEST(DxfImageObj, TranslationMovesAllCornersButNotTheFrame) {
    DxfImageObj object(picture, 1);
    const MathMatrix frame = *object.getImageFrame();
    object.translate({10, -20, 0.5});
    expectPoint(object.getImageParam().getLeftBottomCorner(), {11, -18, 3.5});
    expectPoint(object.getImageParam().getRightTopCorner(), {21, -10.5, 3.5});
    EXPECT_EQ(object.getImageParam().getImgWidth(), 10);
    EXPECT_EQ(object.getImageParam().getImgHeight(), 7.5);
    EXPECT_EQ(*object.getImageFrame(), frame);
    EXPECT_STREQ(object.getImageParam().getImagePath(), picture.getImagePath());
    EXPECT_EQ(object.getImageParam().getNumPixelPerUnit(), 64);
}

TEST(DxfImageObj, TransformTakesAllCornersThroughTheMatrix) {
    DxfImageObj object(imageAt({0, 2, 0}, {0, 0, 0}, {4, 0, 0}), 1);
    // Turns x to y and y to negative x, doubles lengths, moves by (10, 20, 30).
    object.transform(matrixOf({{0, -2, 0, 10}, {2, 0, 0, 20}, {0, 0, 2, 30}, {0, 0, 0, 1}}));
    const ImageParam& image = object.getImageParam();
    expectPoint(image.getLeftBottomCorner(), {10, 20, 30});
    expectPoint(image.getRightTopCorner(), {6, 28, 30});
    expectPoint(image.getImgUVector(), {0, 1, 0});
    expectPoint(image.getImgVVector(), {-1, 0, 0});
    EXPECT_EQ(image.getImgWidth(), 8);
    EXPECT_EQ(image.getImgHeight(), 4);
}

TEST(DxfImageObj, TransformDividesEachCornerByItsWeight) {
    DxfImageObj object(imageAt({0, 2, 0}, {0, 0, 0}, {4, 0, 0}), 1);
    // The weight is 1 + y / 2: 1 along the bottom edge, 2 at the left-top corner.
    object.transform(matrixOf({{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0.5, 0, 1}}));
    EXPECT_EQ(object.getImageParam().getImgWidth(), 4);
    EXPECT_EQ(object.getImageParam().getImgHeight(), 1);
}

TEST(DxfImageObj, MovedImageIsWrittenWhereItLies) {
    DxfSectionRegistry registry;
    fileSections(registry, 1);
    DxfImageObj object = numbered(picture, 1);
    object.translate({1, 0, 0});
    object.fillSections(registry);
    EXPECT_EQ(registry.getSectionValue({entityImage, 1}, L"#VEXO_ENTITYIMAGE_INSPNTX#"),
              L"2.00000000000000000");
    EXPECT_EQ(registry.getSectionValue(headerExtMin, L"#VEXO_EXTVARX_VALUE#"), L"2.00000000000000000");
}

TEST(DxfImageObj, CloneIsIndependent) {
    DxfSectionRegistry registry;
    fileSections(registry, 2);
    DxfImageObj object = numbered(picture, 2);
    object.assignHandles(registry);
    const std::unique_ptr<DxfEntity> clone = object.clone();
    const auto& copy = dynamic_cast<const DxfImageObj&>(*clone);
    object.translate({100, 100, 100});
    object.assignHandles(registry);

    EXPECT_EQ(copy.sectionKey(), SectionKey(entityImage, 2));
    EXPECT_EQ(*copy.getImageFrame(), *object.getImageFrame());
    EXPECT_NE(copy.getImageParam().getImagePath(), object.getImageParam().getImagePath());
    copy.fillSections(registry);
    EXPECT_EQ(registry.getSectionValue({entityImage, 2}, L"#VEXO_ENTITYIMAGE_HANDLE#"), L"7E");
    EXPECT_EQ(registry.getSectionValue({entityImage, 2}, L"#VEXO_ENTITYIMAGE_INSPNTX#"),
              L"1.00000000000000000");
    EXPECT_EQ(registry.getSectionValue({objectImageDef, 2}, L"#VEXO_OBJ_FILENAME#"), picture.getImagePath());
    EXPECT_EQ(registry.getSectionValue({objectImageDefReactor, 2}, L"#VEXO_OBJIMAGEDEFREACTORHANDLE#"),
              L"80");
}
