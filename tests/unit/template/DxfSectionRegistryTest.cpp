#include "template/DxfSectionRegistry.h"

#include "platform/File.h"
#include "support/TestFolder.h"
#include "support/WideText.h"
#include "template/DxfError.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

using namespace rasterplan;
using namespace rasterplan::test;
using enum TopLevelKey;

namespace {

constexpr RecordTable rows({{L"#VEXO_A#", "", filled}});
constexpr SectionTable table = rows.table();

/// A section of one line.
DxfSection sectionSaying(std::wstring_view value) {
    DxfSection section(table);
    section.setPlaceholderValue(L"#VEXO_A#", value);
    return section;
}

std::string bytesOf(const DxfSectionRegistry& registry, std::wstring_view line) {
    const TestFolder folder;
    {
        const File file = openForWriting(wideText(utf8FromPath(folder / "bytes")));
        if (!file)
            throw std::runtime_error("cannot write the file");
        OutputBuffer buffer(file.get());
        registry.renderPlaceholder(line, buffer);
    }
    return readBytes(folder / "bytes");
}

} // namespace

TEST(DxfSectionRegistry, FirstHandleIs126) {
    DxfSectionRegistry registry;
    EXPECT_EQ(registry.nextHandle(), 126);
    EXPECT_EQ(registry.nextHandle(), 127);
    EXPECT_EQ(DxfSectionRegistry().nextHandle(), 126);
}

TEST(DxfSectionRegistry, NumbersInstancesPerKeyFromOne) {
    DxfSectionRegistry registry;
    EXPECT_EQ(registry.makeInstanceKey(entityImage).text(), L"#VEXO_ENTITY_IMAGE#1");
    EXPECT_EQ(registry.makeInstanceKey(entityImage).text(), L"#VEXO_ENTITY_IMAGE#2");
    EXPECT_EQ(registry.makeInstanceKey(entityLine).text(), L"#VEXO_ENTITY_LINE#1");
    EXPECT_EQ(registry.makeInstanceKey(entityImage).text(), L"#VEXO_ENTITY_IMAGE#3");
}

TEST(DxfSectionRegistry, InstanceKeysAreTheKeyItselfOrItsNumbers) {
    DxfSectionRegistry registry;
    EXPECT_EQ(registry.instanceKeys(headerExtMin), (std::vector<SectionKey>{headerExtMin}));
    registry.makeInstanceKey(entityLine);
    EXPECT_EQ(registry.instanceKeys(entityLine), (std::vector<SectionKey>{{entityLine, 1}}));
    registry.makeInstanceKey(entityLine);
    EXPECT_EQ(registry.instanceKeys(entityLine), (std::vector<SectionKey>{{entityLine, 1}, {entityLine, 2}}));
    EXPECT_EQ(registry.instanceKeys(entityImage), (std::vector<SectionKey>{entityImage}));
}

TEST(DxfSectionRegistry, KeepsTheFirstSectionOfAKey) {
    DxfSectionRegistry registry;
    registry.fileSection(headerExtMin, sectionSaying(L"first"));
    registry.fileSection(headerExtMin, sectionSaying(L"second"));
    EXPECT_EQ(registry.renderPlaceholder(L"#VEXO_HEADER_EXTMIN#"), L"first\n");

    const SectionKey one = registry.makeInstanceKey(entityLine);
    registry.fileSection(one, sectionSaying(L"first line"));
    registry.fileSection(one, sectionSaying(L"second line"));
    EXPECT_EQ(registry.renderPlaceholder(L"#VEXO_ENTITY_LINE#"), L"first line\n");
}

TEST(DxfSectionRegistry, SectionWithoutLinesTakesItsKeyToo) {
    DxfSectionRegistry registry;
    registry.fileSection(headerExtMin, DxfSection());
    registry.fileSection(headerExtMin, sectionSaying(L"late"));
    EXPECT_EQ(registry.renderPlaceholder(L"#VEXO_HEADER_EXTMIN#"), L"");
}

TEST(DxfSectionRegistry, RendersNumbersInAscendingOrder) {
    DxfSectionRegistry registry;
    std::wstring expected;
    for (int i = 1; i <= 12; ++i) {
        const std::wstring number = std::to_wstring(i);
        registry.fileSection(registry.makeInstanceKey(entityImage), sectionSaying(number));
        expected += number + L"\n";
    }
    EXPECT_EQ(registry.renderPlaceholder(L"#VEXO_ENTITY_IMAGE#"), expected);
    EXPECT_EQ(registry.renderPlaceholder(L"#VEXO_ENTITY_LINE#"), L"");
    EXPECT_EQ(registry.renderPlaceholder(L"#VEXO_ENTITY_IMAGE#1"), L"");
}

TEST(DxfSectionRegistry, NumberedKeyHidesTheSectionOfTheKeyItself) {
    DxfSectionRegistry registry;
    registry.fileSection(entityImage, sectionSaying(L"unnumbered"));
    EXPECT_EQ(registry.renderPlaceholder(L"#VEXO_ENTITY_IMAGE#"), L"unnumbered\n");
    const SectionKey one = registry.makeInstanceKey(entityImage);
    EXPECT_EQ(registry.renderPlaceholder(L"#VEXO_ENTITY_IMAGE#"), L"");
    registry.fileSection(one, sectionSaying(L"numbered"));
    EXPECT_EQ(registry.renderPlaceholder(L"#VEXO_ENTITY_IMAGE#"), L"numbered\n");
    EXPECT_EQ(registry.getSectionValue(entityImage, L"#VEXO_A#"), L"unnumbered");
}

TEST(DxfSectionRegistry, OtherLinesRenderNothing) {
    DxfSectionRegistry registry;
    registry.fileSection(headerExtMin, sectionSaying(L"a"));
    for (const wchar_t* const line : {L"", L"#", L"#VEXO_HEADER_EXTMIN", L"#VEXO_HEADER_EXTMIN# ",
                                      L"#vexo_header_extmin#", L"#VEXO_HEADER_EXTMID#", L"0"})
        EXPECT_EQ(registry.renderPlaceholder(line), L"") << testing::PrintToString(line);
    EXPECT_EQ(registry.renderPlaceholder(L"#VEXO_HEADER_EXTMAX#"), L"");
}

TEST(DxfSectionRegistry, SetsAndGetsValues) {
    DxfSectionRegistry registry;
    const SectionKey key = registry.makeInstanceKey(objectImageDef);
    registry.fileSection(key, sectionSaying(L"a"));
    EXPECT_EQ(registry.getSectionValue(key, L"#VEXO_A#"), L"a");
    EXPECT_TRUE(registry.setSectionValue(L"#VEXO_OBJECT_IMAGEDEF#1", L"#VEXO_A#", L"b"));
    EXPECT_EQ(registry.getSectionValue(L"#VEXO_OBJECT_IMAGEDEF#1", L"#VEXO_A#"), L"b");
    EXPECT_TRUE(registry.setSectionValue(key, L"#VEXO_A#", 2.5));
    EXPECT_FALSE(registry.setSectionValue(key, L"#VEXO_B#", L"b"));
    EXPECT_EQ(registry.getSectionValue(key, L"#VEXO_B#"), L"");
    EXPECT_EQ(registry.renderPlaceholder(L"#VEXO_OBJECT_IMAGEDEF#"), L"2.50000000000000000\n");
}

TEST(DxfSectionRegistry, UnknownSectionTakesAndGivesNothing) {
    DxfSectionRegistry registry;
    for (const SectionKey& key : {SectionKey(headerExtMin), SectionKey(entityImage, 7), SectionKey()}) {
        EXPECT_FALSE(registry.setSectionValue(key, L"#VEXO_A#", L"a"));
        EXPECT_EQ(registry.getSectionValue(key, L"#VEXO_A#"), L"");
    }
}

TEST(DxfSectionRegistry, KeyFiledWithoutSectionIsAnErrorOnReading) {
    DxfSectionRegistry registry;
    const SectionKey numbered = registry.makeInstanceKey(entityLine);
    for (const SectionKey& key : {SectionKey(headerExtMin), numbered}) {
        registry.fileSection(key, std::nullopt);
        try {
            registry.getSectionValue(key, L"#VEXO_A#");
            ADD_FAILURE() << "the missing section was read";
        } catch (const DxfError& error) {
            EXPECT_EQ(error.message(), L"Section NUll pointer");
        }
        EXPECT_FALSE(registry.setSectionValue(key, L"#VEXO_A#", L"a"));
        EXPECT_EQ(registry.renderPlaceholder(textOf(key.topLevelKey())), L"");
    }
}

TEST(DxfSectionRegistry, NumberWithoutSectionIsSkipped) {
    DxfSectionRegistry registry;
    registry.fileSection(registry.makeInstanceKey(entityImage), sectionSaying(L"1"));
    const SectionKey two = registry.makeInstanceKey(entityImage);
    EXPECT_EQ(registry.renderPlaceholder(L"#VEXO_ENTITY_IMAGE#"), L"1\n");
    EXPECT_FALSE(registry.setSectionValue(two, L"#VEXO_A#", L"lost"));
    EXPECT_EQ(registry.getSectionValue(two, L"#VEXO_A#"), L"");
    registry.fileSection(two, sectionSaying(L"2"));
    EXPECT_EQ(registry.renderPlaceholder(L"#VEXO_ENTITY_IMAGE#"), L"1\n2\n");
}

TEST(DxfSectionRegistry, KeyFiledWithoutSectionIsTaken) {
    DxfSectionRegistry registry;
    registry.fileSection(headerExtMin, std::nullopt);
    registry.fileSection(headerExtMin, sectionSaying(L"late"));
    EXPECT_THROW(registry.getSectionValue(headerExtMin, L"#VEXO_A#"), DxfError);
    EXPECT_EQ(registry.renderPlaceholder(L"#VEXO_HEADER_EXTMIN#"), L"");

    registry.fileSection(headerExtMax, sectionSaying(L"first"));
    registry.fileSection(headerExtMax, std::nullopt);
    EXPECT_EQ(registry.getSectionValue(headerExtMax, L"#VEXO_A#"), L"first");
}

TEST(DxfSectionRegistry, ManySectionsOfAKeyKeepTheirValues) {
    DxfSectionRegistry registry;
    std::wstring expected;
    for (int i = 1; i <= 1000; ++i) {
        const SectionKey key = registry.makeInstanceKey(entityLine);
        registry.fileSection(key, DxfSection(table));
        EXPECT_TRUE(registry.setSectionValue(key, rows[L"#VEXO_A#"], i));
        expected += std::to_wstring(i) + L"\n";
    }
    EXPECT_EQ(registry.getSectionValue({entityLine, 500}, L"#VEXO_A#"), L"500");
    EXPECT_EQ(registry.renderPlaceholder(L"#VEXO_ENTITY_LINE#"), expected);
}

TEST(DxfSectionRegistry, NumberedSectionsMayBeOfDifferentClasses) {
    DxfSectionRegistry registry;
    const SectionKey one = registry.makeInstanceKey(entityImage);
    const SectionKey two = registry.makeInstanceKey(entityImage);
    const SectionKey three = registry.makeInstanceKey(entityImage);
    registry.fileSection(one, sectionSaying(L"1"));
    DxfSection other;
    other.addPlaceholder(L"#VEXO_B#", L"2");
    other.addPlaceholder(L"#VEXO_C#", L"also 2");
    registry.fileSection(two, std::move(other));
    registry.fileSection(three, sectionSaying(L"3"));
    EXPECT_EQ(registry.renderPlaceholder(L"#VEXO_ENTITY_IMAGE#"), L"1\n2\nalso 2\n3\n");
    EXPECT_TRUE(registry.setSectionValue(one, rows[L"#VEXO_A#"], L"first"));
    EXPECT_TRUE(registry.setSectionValue(two, L"#VEXO_C#", L"second"));
    EXPECT_TRUE(registry.setSectionValue(three, rows[L"#VEXO_A#"], 3));
    EXPECT_FALSE(registry.setSectionValue(two, rows[L"#VEXO_A#"], L"lost"));
    EXPECT_FALSE(registry.setSectionValue(three, L"#VEXO_B#", L"lost"));
    EXPECT_EQ(registry.renderPlaceholder(L"#VEXO_ENTITY_IMAGE#"), L"first\n2\nsecond\n3\n");
    EXPECT_EQ(registry.getSectionValue(two, L"#VEXO_B#"), L"2");
}

TEST(DxfSectionRegistry, FileGetsTheSameTextInUtf8) {
    DxfSectionRegistry registry;
    registry.fileSection(registry.makeInstanceKey(entityImage), sectionSaying(L"S\u00FCd\nplan"));
    registry.fileSection(registry.makeInstanceKey(entityImage), sectionSaying(L"2"));
    EXPECT_EQ(registry.renderPlaceholder(L"#VEXO_ENTITY_IMAGE#"), L"S\u00FCd\nplan\n2\n");
    EXPECT_EQ(bytesOf(registry, L"#VEXO_ENTITY_IMAGE#"), "S\xC3\xBC"
                                                         "d\r\nplan\r\n2\r\n");
    EXPECT_EQ(bytesOf(registry, L"#VEXO_ENTITY_LINE#"), "");
}
