#include "template/DxfSection.h"

#include "platform/File.h"
#include "support/TestFolder.h"
#include "support/WideText.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <limits>
#include <stdexcept>
#include <string>
#include <utility>

using namespace rasterplan;
using namespace rasterplan::test;

namespace {

constexpr RecordTable entryRows({
    {L"#VEXO_ENTRY_GROUPCODE#", "350"},
    {L"#VEXO_ENTRY#", "", filled},
});
constexpr SectionTable entryTable = entryRows.table();

constexpr RecordTable rows({
    {L"#VEXO_NAME_GROUPCODE#", "0"},
    {L"#VEXO_NAME#", "RECORD"},
    {L"#VEXO_SIZE_GROUPCODE#", "40"},
    {L"#VEXO_SIZE#", "1.0", filled},
    {L"#VEXO_TEXT_GROUPCODE#", "1"},
    {L"#VEXO_TEXT#", "", filled},
});
constexpr SectionTable table = rows.table();
constexpr SectionTable tableWithEntries = rows.table(&entryTable);

/// What a section writes into a file.
std::string bytesOf(const DxfSection& section) {
    const TestFolder folder;
    {
        const File file = openForWriting(wideText(utf8FromPath(folder / "bytes")));
        if (!file)
            throw std::runtime_error("cannot write the file");
        OutputBuffer buffer(file.get());
        section.render(buffer);
    }
    return readBytes(folder / "bytes");
}

} // namespace

TEST(DxfSection, WithoutLinesRendersNothing) {
    const DxfSection section;
    EXPECT_EQ(section.render(), L"");
    EXPECT_EQ(bytesOf(section), "");
}

TEST(DxfSection, RendersEachValueOnALine) {
    DxfSection section;
    section.addPlaceholder(L"#VEXO_B#", L"0");
    section.addPlaceholder(L"#VEXO_A#", L" value ");
    section.addPlaceholder(L"#VEXO_EMPTY#", L"");
    EXPECT_EQ(section.render(), L"0\n value \n\n");
    EXPECT_EQ(bytesOf(section), "0\r\n value \r\n\r\n");
}

TEST(DxfSection, SettingAnUndeclaredKeyChangesNothing) {
    DxfSection section;
    EXPECT_FALSE(section.setPlaceholderValue(L"#VEXO_A#", L"a"));
    EXPECT_EQ(section.render(), L"");
    section.addPlaceholder(L"#VEXO_A#", L"a");
    EXPECT_FALSE(section.setPlaceholderValue(L"#VEXO_B#", L"b"));
    EXPECT_FALSE(section.setPlaceholderValue(L"#vexo_a#", L"b"));
    EXPECT_FALSE(section.setPlaceholderValue(L"#VEXO_A#1", L"b"));
    EXPECT_FALSE(section.setPlaceholderValue(L"", L"b"));
    EXPECT_EQ(section.render(), L"a\n");
}

TEST(DxfSection, KeyDeclaredTwiceKeepsTheFirstValueOnBothLines) {
    DxfSection section;
    section.addPlaceholder(L"#VEXO_A#", L"a");
    section.addPlaceholder(L"#VEXO_A#", L"b");
    EXPECT_EQ(section.render(), L"a\na\n");
    EXPECT_EQ(bytesOf(section), "a\r\na\r\n");
    EXPECT_TRUE(section.setPlaceholderValue(L"#VEXO_A#", L"c"));
    section.addPlaceholder(L"#VEXO_B#", L"between");
    section.addPlaceholder(L"#VEXO_A#", L"d");
    EXPECT_EQ(section.render(), L"c\nc\nbetween\nc\n");
}

TEST(DxfSection, ValueWithLineFeedRendersSeveralLines) {
    DxfSection section;
    section.addPlaceholder(L"#VEXO_A#", L"one\ntwo\n");
    EXPECT_EQ(section.render(), L"one\ntwo\n\n");
    EXPECT_EQ(bytesOf(section), "one\r\ntwo\r\n\r\n");
    EXPECT_EQ(section.getPlaceholderValue(L"#VEXO_A#"), L"one\ntwo\n");
}

TEST(DxfSection, ValueOfAnUndeclaredKeyIsEmpty) {
    DxfSection section;
    EXPECT_EQ(section.getPlaceholderValue(L"#VEXO_A#"), L"");
    EXPECT_FALSE(section.hasPlaceholderValue(L"#VEXO_A#"));
    section.addPlaceholder(L"#VEXO_A#", L"a");
    EXPECT_EQ(section.getPlaceholderValue(L"#VEXO_B#"), L"");
    EXPECT_EQ(section.getPlaceholderValue(L"#VEXO_A#"), L"a");
}

TEST(DxfSection, NothingIsTrimmedOrEscaped) {
    DxfSection section;
    const std::wstring text = L" #VEXO_A#\t%s \\U+00E4 \u00E4 ";
    section.addPlaceholder(L"#VEXO_A#", text);
    EXPECT_EQ(section.render(), text + L"\n");
}

TEST(DxfSection, StartsWithTheLinesOfItsTable) {
    const DxfSection section(table);
    EXPECT_EQ(section.render(), L"0\nRECORD\n40\n1.0\n1\n\n");
    EXPECT_EQ(bytesOf(section), "0\r\nRECORD\r\n40\r\n1.0\r\n1\r\n\r\n");
    EXPECT_EQ(section.getPlaceholderValue(L"#VEXO_SIZE#"), L"1.0");
    EXPECT_EQ(section.getPlaceholderValue(L"#VEXO_NAME#"), L"RECORD");
    EXPECT_EQ(section.getPlaceholderValue(rows[L"#VEXO_TEXT#"]), L"");
}

TEST(DxfSection, WritesEveryKindOfValue) {
    DxfSection section(table);
    const Placeholder size = rows[L"#VEXO_SIZE#"];
    const auto written = [&](const SectionValue& value) {
        EXPECT_TRUE(section.setPlaceholderValue(size, value));
        const std::string bytes = bytesOf(section);
        const std::wstring text = section.getPlaceholderValue(size);
        EXPECT_EQ(bytes, "0\r\nRECORD\r\n40\r\n" + std::string(text.begin(), text.end()) + "\r\n1\r\n\r\n");
        EXPECT_EQ(section.render(), L"0\nRECORD\n40\n" + text + L"\n1\n\n");
        return text;
    };
    EXPECT_EQ(written(2.5), L"2.50000000000000000");
    EXPECT_EQ(written(-0.1), L"-0.10000000000000001");
    EXPECT_EQ(written(1024), L"1024");
    EXPECT_EQ(written(-3), L"-3");
    EXPECT_EQ(written(Handle{0x7E}), L"7E");
    EXPECT_EQ(written(Handle{}), L"");
    EXPECT_EQ(written(L"text"), L"text");
    EXPECT_EQ(written(L""), L"");
    EXPECT_EQ(written(SectionValue()), L"1.0");
    EXPECT_EQ(written(DBL_MAX), L"179769313486231570814527423731704356798070567525844996598917476803157260780"
                                L"028538760589558632766878");
}

TEST(DxfSection, PlaceIsOnlyAShortCut) {
    DxfSection byPlace(table);
    DxfSection byName(table);
    for (const wchar_t* const key : {L"#VEXO_SIZE#", L"#VEXO_TEXT#"}) {
        EXPECT_TRUE(byPlace.setPlaceholderValue(rows[key], key));
        EXPECT_TRUE(byName.setPlaceholderValue(key, key));
    }
    EXPECT_EQ(byPlace.render(), byName.render());
    EXPECT_EQ(byPlace.getPlaceholderValue(L"#VEXO_TEXT#"), L"#VEXO_TEXT#");
    EXPECT_EQ(byName.getPlaceholderValue(rows[L"#VEXO_TEXT#"]), L"#VEXO_TEXT#");
}

TEST(DxfSection, PlaceInAnotherTableIsNotTaken) {
    DxfSection section;
    section.addPlaceholder(L"#VEXO_OTHER#", L"kept");
    section.addPlaceholder(L"#VEXO_SIZE#", L"");
    EXPECT_TRUE(section.setPlaceholderValue(rows[L"#VEXO_SIZE#"], L"set"));
    EXPECT_FALSE(section.setPlaceholderValue(rows[L"#VEXO_TEXT#"], L"lost"));
    EXPECT_EQ(section.render(), L"kept\nset\n");
    DxfSection other(entryTable);
    EXPECT_FALSE(other.setPlaceholderValue(rows[L"#VEXO_SIZE#"], L"lost"));
    EXPECT_EQ(other.render(), L"350\n\n");
}

TEST(DxfSection, ConstantLinesCanBeSetToo) {
    DxfSection section(table);
    const DxfSection sibling(table);
    EXPECT_TRUE(section.setPlaceholderValue(rows[L"#VEXO_SIZE#"], 2.5));
    EXPECT_TRUE(section.setPlaceholderValue(L"#VEXO_NAME#", L"OTHER"));
    EXPECT_TRUE(section.setPlaceholderValue(rows[L"#VEXO_TEXT#"], L"behind"));
    EXPECT_EQ(section.render(), L"0\nOTHER\n40\n2.50000000000000000\n1\nbehind\n");
    EXPECT_EQ(section.getPlaceholderNumber(rows[L"#VEXO_SIZE#"]), 2.5);
    EXPECT_EQ(sibling.render(), L"0\nRECORD\n40\n1.0\n1\n\n");
    EXPECT_TRUE(section.setPlaceholderValue(L"#VEXO_SIZE#", SectionValue()));
    EXPECT_EQ(section.getPlaceholderValue(L"#VEXO_SIZE#"), L"1.0");
}

TEST(DxfSection, LinesCanFollowThoseOfTheTable) {
    DxfSection section(table);
    EXPECT_TRUE(section.setPlaceholderValue(rows[L"#VEXO_TEXT#"], L"text"));
    section.addPlaceholder(L"#VEXO_MORE#", L"more");
    section.addPlaceholder(L"#VEXO_NAME#", L"ignored");
    EXPECT_EQ(section.render(), L"0\nRECORD\n40\n1.0\n1\ntext\nmore\nRECORD\n");
}

TEST(DxfSection, EntriesFollowWithNumberedKeys) {
    DxfSection section(tableWithEntries, 3);
    EXPECT_TRUE(section.setPlaceholderValue(entryRows[L"#VEXO_ENTRY#"].inEntry(3), L"third"));
    EXPECT_TRUE(section.setPlaceholderValue(L"#VEXO_ENTRY#1", L"first"));
    EXPECT_FALSE(section.setPlaceholderValue(entryRows[L"#VEXO_ENTRY#"].inEntry(4), L"lost"));
    EXPECT_FALSE(section.setPlaceholderValue(entryRows[L"#VEXO_ENTRY#"], L"lost"));
    EXPECT_FALSE(section.setPlaceholderValue(L"#VEXO_ENTRY#", L"lost"));
    EXPECT_FALSE(section.setPlaceholderValue(L"#VEXO_ENTRY#0", L"lost"));
    EXPECT_FALSE(section.setPlaceholderValue(L"#VEXO_ENTRY#01", L"lost"));
    EXPECT_FALSE(section.setPlaceholderValue(L"#VEXO_SIZE#1", L"lost"));
    EXPECT_EQ(section.render(), L"0\nRECORD\n40\n1.0\n1\n\n350\nfirst\n350\n\n350\nthird\n");
    EXPECT_EQ(bytesOf(section),
              "0\r\nRECORD\r\n40\r\n1.0\r\n1\r\n\r\n350\r\nfirst\r\n350\r\n\r\n350\r\nthird\r\n");
    EXPECT_EQ(section.getPlaceholderValue(L"#VEXO_ENTRY#3"), L"third");
    EXPECT_EQ(section.getPlaceholderValue(L"#VEXO_ENTRY_GROUPCODE#2"), L"350");
}

TEST(DxfSection, EntriesKeepTheirKeysWhenAConstantLineIsSet) {
    DxfSection section(tableWithEntries, 2);
    const Placeholder entry = entryRows[L"#VEXO_ENTRY#"];
    EXPECT_TRUE(section.setPlaceholderValue(entry.inEntry(1), L"first"));
    EXPECT_TRUE(section.setPlaceholderValue(L"#VEXO_ENTRY_GROUPCODE#2", L"360"));
    EXPECT_TRUE(section.setPlaceholderValue(entry.inEntry(2), L"second"));
    EXPECT_FALSE(section.setPlaceholderValue(entry.inEntry(3), L"lost"));
    EXPECT_EQ(section.render(), L"0\nRECORD\n40\n1.0\n1\n\n350\nfirst\n360\nsecond\n");
}

TEST(DxfSection, HasNoEntriesBelowOne) {
    for (const std::int32_t entries : {0, -1, std::numeric_limits<std::int32_t>::min()})
        EXPECT_EQ(DxfSection(tableWithEntries, entries).render(), DxfSection(table).render());
    EXPECT_EQ(DxfSection(table, 5).render(), DxfSection(table).render());
}

TEST(DxfSection, ReadsValuesAsNumbers) {
    DxfSection section(table);
    const Placeholder size = rows[L"#VEXO_SIZE#"];
    EXPECT_EQ(section.getPlaceholderNumber(size), 1.0);
    section.setPlaceholderValue(size, 0.1);
    EXPECT_EQ(section.getPlaceholderNumber(size), 0.1);
    section.setPlaceholderValue(size, DBL_MIN);
    EXPECT_EQ(section.getPlaceholderNumber(size), 0.0);
    section.setPlaceholderValue(size, DBL_MAX);
    EXPECT_EQ(section.getPlaceholderNumber(size), 1.7976931348623157e98);
    section.setPlaceholderValue(size, L"  -2.5e1 m");
    EXPECT_EQ(section.getPlaceholderNumber(size), -25.0);
    section.setPlaceholderValue(size, 12);
    EXPECT_EQ(section.getPlaceholderNumber(size), 12.0);
}

TEST(DxfSection, TextsThatAreNoNumbersAreRefused) {
    DxfSection section(table);
    const Placeholder size = rows[L"#VEXO_SIZE#"];
    const auto messageOf = [&](const wchar_t* text) -> std::string {
        section.setPlaceholderValue(size, text);
        try {
            section.getPlaceholderNumber(size);
        } catch (const std::invalid_argument& error) {
            return std::string("invalid: ") + error.what();
        } catch (const std::out_of_range& error) {
            return std::string("range: ") + error.what();
        }
        return "none";
    };
    EXPECT_EQ(messageOf(L""), "invalid: invalid stod argument");
    EXPECT_EQ(messageOf(L"wide"), "invalid: invalid stod argument");
    EXPECT_EQ(messageOf(L"1e999"), "range: stod argument out of range");
    EXPECT_EQ(messageOf(L"1e9"), "none");
}

TEST(DxfSection, TellsWhetherAValueIsEmpty) {
    DxfSection section(table);
    const Placeholder size = rows[L"#VEXO_SIZE#"];
    EXPECT_TRUE(section.hasPlaceholderValue(size));
    EXPECT_FALSE(section.hasPlaceholderValue(rows[L"#VEXO_TEXT#"]));
    EXPECT_TRUE(section.hasPlaceholderValue(L"#VEXO_NAME#"));
    section.setPlaceholderValue(size, L"");
    EXPECT_FALSE(section.hasPlaceholderValue(size));
    section.setPlaceholderValue(size, 0.0);
    EXPECT_TRUE(section.hasPlaceholderValue(size));
    section.setPlaceholderValue(size, Handle{});
    EXPECT_FALSE(section.hasPlaceholderValue(size));
}

TEST(DxfSection, CharacterBeyondUnicodeIsRefusedInTheFileOnly) {
    if (sizeof(wchar_t) == 2)
        GTEST_SKIP() << "every wide character converts here";
    DxfSection section(table);
    const std::wstring text(1, static_cast<wchar_t>(0x110000));
    EXPECT_TRUE(section.setPlaceholderValue(rows[L"#VEXO_TEXT#"], std::wstring_view(text)));
    EXPECT_EQ(section.getPlaceholderValue(rows[L"#VEXO_TEXT#"]), text);
    EXPECT_THROW(bytesOf(section), std::range_error);
    EXPECT_TRUE(section.setPlaceholderValue(rows[L"#VEXO_TEXT#"], L"text"));
    EXPECT_NO_THROW(bytesOf(section));
}

TEST(DxfSection, IsMovedWithItsLines) {
    DxfSection own;
    own.addPlaceholder(L"#VEXO_A#", L"own");
    DxfSection moved(std::move(own));
    EXPECT_EQ(moved.render(), L"own\n");
    EXPECT_EQ(own.render(), L""); // NOLINT(bugprone-use-after-move): it is left without lines
    own.addPlaceholder(L"#VEXO_B#", L"again");
    EXPECT_EQ(own.render(), L"again\n");

    DxfSection assigned(table);
    assigned.setPlaceholderValue(rows[L"#VEXO_TEXT#"], L"gone");
    assigned = std::move(moved);
    EXPECT_EQ(assigned.render(), L"own\n");
    EXPECT_TRUE(assigned.setPlaceholderValue(L"#VEXO_A#", L"still set"));
    EXPECT_EQ(assigned.render(), L"still set\n");
}

TEST(DxfSection, TakesSectionsOfOtherClassesAsEntries) {
    DxfSection all;
    DxfSection own;
    own.addPlaceholder(L"#VEXO_A#", L"a");
    own.addPlaceholder(L"#VEXO_A#", L"b");
    all.appendEntry(DxfSection(entryTable));
    all.appendEntry(own);
    all.appendEntry(DxfSection(entryTable));
    EXPECT_EQ(all.entries(), 3);
    EXPECT_EQ(all.render(), L"350\n\na\na\n350\n\n");
    EXPECT_TRUE(all.setPlaceholderValue(entryRows[L"#VEXO_ENTRY#"].inEntry(3), 3));
    EXPECT_TRUE(all.setPlaceholderValue(L"#VEXO_A#2", L"c"));
    EXPECT_FALSE(all.setPlaceholderValue(entryRows[L"#VEXO_ENTRY#"].inEntry(2), L"lost"));
    EXPECT_EQ(all.render(), L"350\n\nc\nc\n350\n3\n");
}

TEST(DxfSection, TakesSectionsOfOneClassAsEntries) {
    DxfSection all;
    const DxfSection untouched(entryTable);
    DxfSection set(entryTable);
    set.setPlaceholderValue(entryRows[L"#VEXO_ENTRY#"], L"second");
    all.appendEntry(untouched);
    all.appendEntry(set);
    all.appendEntry(untouched);
    EXPECT_EQ(all.entries(), 3);
    EXPECT_EQ(all.render(), L"350\n\n350\nsecond\n350\n\n");
    EXPECT_TRUE(all.setPlaceholderValue(entryRows[L"#VEXO_ENTRY#"].inEntry(3), 3));
    EXPECT_TRUE(all.setPlaceholderValue(L"#VEXO_ENTRY#1", Handle{0xAB}));
    EXPECT_EQ(all.render(), L"350\nAB\n350\nsecond\n350\n3\n");
    EXPECT_EQ(set.render(), L"350\nsecond\n");
}
