#include "dxf/DocumentAssembly.h"

#include "base/Error.h"
#include "support/Images.h"
#include "template/DxfError.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

using namespace rasterplan;
using namespace rasterplan::test;
using enum TopLevelKey;

namespace {

void addImages(Drawing& drawing, int count) {
    for (int i = 0; i < count; ++i)
        drawing.images.append(levelImage({10.0 * i, 0, 0}, 4, 2),
                              static_cast<std::uint32_t>(drawing.images.count() + 1));
}

void addLines(Drawing& drawing, int count) {
    const auto frame = std::make_shared<const MathMatrix>(MathMatrix::identity4());
    for (int i = 0; i < count; ++i)
        drawing.lines.append(LineDescription{{}, {1.0 * i, 0, 0}, frame},
                             static_cast<std::uint32_t>(drawing.lines.count() + 1));
}

void write(DxfSectionRegistry& registry, Drawing& drawing) {
    buildSections(registry, drawing);
    populateSections(registry, drawing);
}

/// The values of a placeholder in the sections numbered from 1 to `count`.
std::vector<std::wstring> values(const DxfSectionRegistry& registry, TopLevelKey key, int count,
                                 const wchar_t* placeholder) {
    std::vector<std::wstring> texts;
    for (std::int32_t number = 1; number <= count; ++number)
        texts.push_back(registry.getSectionValue({key, number}, placeholder));
    return texts;
}

using Texts = std::vector<std::wstring>;

std::size_t occurrences(const std::wstring& text, const std::wstring& part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::wstring::npos; at = text.find(part, at + part.size()))
        ++count;
    return count;
}

std::wstring handSeed(const DxfSectionRegistry& registry) {
    return registry.getSectionValue(headerHandSeed, L"#VEXO_VAR_HANDLEVALUE#");
}

std::wstring messageOf(void (*step)(DxfSectionRegistry&, Drawing&), DxfSectionRegistry& registry,
                       Drawing& drawing) {
    try {
        step(registry, drawing);
    } catch (const ZelkBase::Error& error) {
        return error.message().c_str();
    } catch (const DxfError& error) {
        return error.message();
    }
    return L"none";
}

} // namespace

TEST(DocumentAssembly, WithoutImagesHasOnlyTheFixedSections) {
    DxfSectionRegistry registry;
    Drawing drawing;
    write(registry, drawing);
    for (const TopLevelKey key : {headerExtMin, headerExtMax, headerHandSeed, headerInsUnits, classImageDef,
                                  classImageDefReactor, classImage, tableVPort, objectDictionary})
        EXPECT_NE(registry.renderPlaceholder(textOf(key)), L"") << testing::PrintToString(textOf(key));
    for (const TopLevelKey key : {objectImageDefReactor, objectImageDef, entityLine, entityImage})
        EXPECT_EQ(registry.renderPlaceholder(textOf(key)), L"") << testing::PrintToString(textOf(key));
    for (const TopLevelKey key : {classImageDef, classImageDefReactor, classImage})
        EXPECT_EQ(registry.getSectionValue(key, L"#VEXO_NUM#"), L"0");
    EXPECT_TRUE(registry.renderPlaceholder(L"#VEXO_OBJECT_DICTIONARY#").ends_with(L"\n281\n1\n"));
}

TEST(DocumentAssembly, WithoutObjectsTheHandleSeedIsTheFirstHandle) {
    DxfSectionRegistry registry;
    Drawing drawing;
    write(registry, drawing);
    EXPECT_EQ(handSeed(registry), L"7E");
    EXPECT_EQ(registry.renderPlaceholder(L"#VEXO_HEADER_HANDSEED#"), L"9\n$HANDSEED\n5\n7E\n");
}

TEST(DocumentAssembly, WithoutImagesTheHeaderKeepsItsFirstValues) {
    DxfSectionRegistry registry;
    Drawing drawing;
    write(registry, drawing);
    EXPECT_TRUE(registry.renderPlaceholder(L"#VEXO_HEADER_EXTMIN#")
                    .starts_with(L"9\n$EXTMIN\n10\n17976931348623157"));
    EXPECT_EQ(registry.renderPlaceholder(L"#VEXO_HEADER_EXTMAX#"),
              L"9\n$EXTMAX\n10\n0.00000000000000000\n20\n0.00000000000000000\n30\n0.00000000000000000\n");
    EXPECT_EQ(registry.renderPlaceholder(L"#VEXO_HEADER_INSUNITS#"), L"9\n$INSUNITS\n70\n6\n");
    EXPECT_EQ(registry.getSectionValue(tableVPort, L"#VEXO_TABLE_VPORTVIEWHEIGHT#"),
              L"8589934590.00000000000000000");
}

TEST(DocumentAssembly, ThreeImagesAndNoLine) {
    DxfSectionRegistry registry;
    Drawing drawing;
    addImages(drawing, 3);
    write(registry, drawing);
    const std::wstring images = registry.renderPlaceholder(L"#VEXO_ENTITY_IMAGE#");
    EXPECT_EQ(occurrences(images, L"0\nIMAGE\n5\n"), 3u);
    EXPECT_LT(images.find(L"\n10\n0.0"), images.find(L"\n10\n10.0"));
    EXPECT_LT(images.find(L"\n10\n10.0"), images.find(L"\n10\n20.0"));
    EXPECT_EQ(registry.renderPlaceholder(L"#VEXO_ENTITY_LINE#"), L"");
    EXPECT_EQ(values(registry, entityImage, 3, L"#VEXO_ENTITYIMAGE_HANDLE#"), (Texts{L"7E", L"81", L"84"}));
    EXPECT_EQ(values(registry, objectImageDef, 3, L"#VEXO_OBJHANDLE#"), (Texts{L"7F", L"82", L"85"}));
    EXPECT_EQ(values(registry, objectImageDefReactor, 3, L"#VEXO_OBJIMAGEDEFREACTORHANDLE#"),
              (Texts{L"80", L"83", L"86"}));
    EXPECT_EQ(handSeed(registry), L"87");
    for (const TopLevelKey key : {classImageDef, classImageDefReactor, classImage})
        EXPECT_EQ(registry.getSectionValue(key, L"#VEXO_NUM#"), L"3");
    EXPECT_TRUE(
        registry.renderPlaceholder(L"#VEXO_OBJECT_DICTIONARY#")
            .ends_with(L"\n281\n1\n3\nplan.png\n350\n7F\n3\nplan.png\n350\n82\n3\nplan.png\n350\n85\n"));
}

TEST(DocumentAssembly, LinesGetTheirHandlesBeforeImages) {
    DxfSectionRegistry registry;
    Drawing drawing;
    addLines(drawing, 2);
    addImages(drawing, 1);
    write(registry, drawing);
    EXPECT_EQ(values(registry, entityLine, 2, L"#VEXO_ENTITYLINEHANDLE#"), (Texts{L"7E", L"7F"}));
    EXPECT_EQ(registry.getSectionValue({entityImage, 1}, L"#VEXO_ENTITYIMAGE_HANDLE#"), L"80");
    EXPECT_EQ(registry.getSectionValue({entityImage, 1}, L"#VEXO_ENTITYIMAGE_OBJPOINTER#"), L"81");
    EXPECT_EQ(registry.getSectionValue({entityImage, 1}, L"#VEXO_ENTITYIMAGE_HANDLEIMGDEFREACTOR#"), L"82");
    EXPECT_EQ(handSeed(registry), L"83");
    EXPECT_EQ(drawing.lines.tail()->sectionKey().text(), L"#VEXO_ENTITY_LINE#2");
    EXPECT_EQ(drawing.images.head()->sectionKey().text(), L"#VEXO_ENTITY_IMAGE#1");
}

TEST(DocumentAssembly, SecondDocumentContinuesNumbersAndHandles) {
    DxfSectionRegistry registry;
    Drawing drawing;
    addLines(drawing, 2);
    addImages(drawing, 2);
    write(registry, drawing);
    const std::wstring firstImages = registry.renderPlaceholder(L"#VEXO_ENTITY_IMAGE#");
    const std::wstring firstLines = registry.renderPlaceholder(L"#VEXO_ENTITY_LINE#");
    EXPECT_EQ(handSeed(registry), L"86");
    write(registry, drawing);

    EXPECT_EQ(values(registry, entityLine, 4, L"#VEXO_ENTITYLINEHANDLE#"),
              (Texts{L"7E", L"7F", L"87", L"88"}));
    EXPECT_EQ(values(registry, entityImage, 4, L"#VEXO_ENTITYIMAGE_HANDLE#"),
              (Texts{L"80", L"83", L"89", L"8C"}));
    EXPECT_EQ(handSeed(registry), L"8F");
    EXPECT_EQ(drawing.lines.head()->sectionKey().text(), L"#VEXO_ENTITY_LINE#3");
    EXPECT_EQ(drawing.images.tail()->sectionKey().text(), L"#VEXO_ENTITY_IMAGE#4");

    const std::wstring images = registry.renderPlaceholder(L"#VEXO_ENTITY_IMAGE#");
    EXPECT_TRUE(images.starts_with(firstImages));
    EXPECT_EQ(images.size(), 2 * firstImages.size());
    const std::wstring lines = registry.renderPlaceholder(L"#VEXO_ENTITY_LINE#");
    EXPECT_TRUE(lines.starts_with(firstLines));
    EXPECT_EQ(lines.size(), 2 * firstLines.size());
}

TEST(DocumentAssembly, SecondDocumentFillsTheFirstDefinitionsAgain) {
    DxfSectionRegistry registry;
    Drawing drawing;
    addImages(drawing, 2);
    write(registry, drawing);
    write(registry, drawing);
    EXPECT_EQ(values(registry, objectImageDef, 4, L"#VEXO_OBJHANDLE#"), (Texts{L"86", L"89", L"59", L"59"}));
    EXPECT_EQ(values(registry, objectImageDef, 4, L"#VEXO_OBJ_FILENAME#"),
              (Texts{L"plan.png", L"plan.png", L"", L""}));
    EXPECT_EQ(values(registry, objectImageDefReactor, 4, L"#VEXO_OBJIMAGEDEFREACTORHANDLE#"),
              (Texts{L"87", L"8A", L"5B", L"5B"}));
    EXPECT_EQ(registry.getSectionValue(objectDictionary, L"#VEXO_OBJ_HANDLEOBJ#2"), L"89");
    EXPECT_EQ(registry.getSectionValue(objectDictionary, L"#VEXO_OBJ_HANDLEOBJ#3"), L"");
    EXPECT_EQ(occurrences(registry.renderPlaceholder(L"#VEXO_OBJECT_IMAGEDEF#"), L"0\nIMAGEDEF\n"), 4u);
}

TEST(DocumentAssembly, FixedSectionsAreThoseOfTheFirstDocument) {
    DxfSectionRegistry registry;
    Drawing drawing;
    addImages(drawing, 1);
    write(registry, drawing);
    Drawing other;
    addImages(other, 1);
    other.images.head()->translate({-7, 0, 50});
    other.viewport.addImage(levelImage({0, 0, 0}, 4, 2));
    write(registry, other);
    EXPECT_EQ(occurrences(registry.renderPlaceholder(L"#VEXO_CLASS_IMAGE#"), L"0\nCLASS\n"), 1u);
    // The extents of the first document take part.
    EXPECT_EQ(registry.renderPlaceholder(L"#VEXO_HEADER_EXTMIN#"),
              L"9\n$EXTMIN\n10\n-7.00000000000000000\n20\n0.00000000000000000\n30\n0.00000000000000000\n");
    EXPECT_EQ(registry.renderPlaceholder(L"#VEXO_HEADER_EXTMAX#"),
              L"9\n$EXTMAX\n10\n4.00000000000000000\n20\n2.00000000000000000\n30\n50.00000000000000000\n");
    EXPECT_EQ(registry.getSectionValue(tableVPort, L"#VEXO_TABLE_VPORTVIEWHEIGHT#"), L"2.00000000000000000");
}

TEST(DocumentAssembly, ImageAddedAfterADocumentHasNoEntryInTheDictionary) {
    DxfSectionRegistry registry;
    Drawing drawing;
    addImages(drawing, 1);
    write(registry, drawing);
    addImages(drawing, 1);
    for (int attempt = 0; attempt < 3; ++attempt) {
        buildSections(registry, drawing);
        EXPECT_EQ(messageOf(populateSections, registry, drawing),
                  L"Failure while setting Map:#VEXO_OBJECT_IMAGEDEF#2");
    }
    EXPECT_EQ(registry.getSectionValue(classImage, L"#VEXO_NUM#"), L"1");
}

TEST(DocumentAssembly, MissingLineStopsTheBuild) {
    DxfSectionRegistry registry;
    Drawing drawing;
    addImages(drawing, 1);
    addLines(drawing, 1);
    drawing.lines.appendEmpty();
    addLines(drawing, 1);
    EXPECT_EQ(messageOf(buildSections, registry, drawing), L"Null pointer dereferenced");
    EXPECT_NE(registry.renderPlaceholder(L"#VEXO_TABLE_VPORT#"), L"");
    EXPECT_NE(registry.renderPlaceholder(L"#VEXO_OBJECT_DICTIONARY#"), L"");
    EXPECT_NE(registry.renderPlaceholder(L"#VEXO_OBJECT_IMAGEDEF#"), L"");
    EXPECT_EQ(occurrences(registry.renderPlaceholder(L"#VEXO_ENTITY_LINE#"), L"0\nLINE\n"), 1u);
    EXPECT_EQ(registry.renderPlaceholder(L"#VEXO_ENTITY_IMAGE#"), L"");
}

TEST(DocumentAssembly, MissingImageStopsTheBuild) {
    DxfSectionRegistry registry;
    Drawing drawing;
    addLines(drawing, 2);
    addImages(drawing, 1);
    drawing.images.appendEmpty();
    EXPECT_EQ(messageOf(buildSections, registry, drawing), L"Null pointer dereferenced");
    EXPECT_EQ(occurrences(registry.renderPlaceholder(L"#VEXO_ENTITY_LINE#"), L"0\nLINE\n"), 2u);
    EXPECT_EQ(occurrences(registry.renderPlaceholder(L"#VEXO_ENTITY_IMAGE#"), L"0\nIMAGE\n5\n"), 1u);
    // It counts as an image all the same.
    EXPECT_EQ(registry.getSectionValue(classImage, L"#VEXO_NUM#"), L"2");
}

TEST(DocumentAssembly, MissingObjectStopsTheFill) {
    DxfSectionRegistry registry;
    Drawing drawing;
    addLines(drawing, 1);
    addImages(drawing, 1);
    buildSections(registry, drawing);
    drawing.images.appendEmpty();
    EXPECT_EQ(messageOf(populateSections, registry, drawing), L"Null pointer dereferenced");
    EXPECT_EQ(registry.getSectionValue({entityImage, 1}, L"#VEXO_ENTITYIMAGE_HANDLE#"), L"7F");
    EXPECT_EQ(handSeed(registry), L"");
    drawing.lines.appendEmpty();
    EXPECT_EQ(messageOf(populateSections, registry, drawing), L"Null pointer dereferenced");
    EXPECT_EQ(registry.getSectionValue({entityLine, 1}, L"#VEXO_ENTITYLINEHANDLE#"), L"82");
    EXPECT_EQ(registry.getSectionValue({entityImage, 1}, L"#VEXO_ENTITYIMAGE_HANDLE#"), L"7F");
}

TEST(DocumentAssembly, HandleSeedWithoutSectionIsNotMissed) {
    DxfSectionRegistry registry;
    Drawing drawing;
    registry.fileSection(tableVPort, drawing.viewport.createSection());
    populateSections(registry, drawing);
    EXPECT_EQ(handSeed(registry), L"");
    EXPECT_EQ(registry.nextHandle(), 127);
}

TEST(DocumentAssembly, UnbuiltDrawingIsNotFilled) {
    DxfSectionRegistry registry;
    Drawing drawing;
    EXPECT_EQ(messageOf(populateSections, registry, drawing),
              L"Failure while setting Map:#VEXO_TABLE_VPORT#");
    addLines(drawing, 1);
    EXPECT_EQ(messageOf(populateSections, registry, drawing), L"Failure while setting Map:");
}
