#include "template/SectionTable.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace rasterplan;

namespace {

constexpr RecordTable rows({
    {L"#VEXO_A_GROUPCODE#", "0"},
    {L"#VEXO_A#", "first", filled},
    {L"#VEXO_B_GROUPCODE#", "5"},
    {L"#VEXO_B#", "", filled},
    {L"#VEXO_C_GROUPCODE#", "70"},
    {L"#VEXO_C#", "12"},
});
constexpr SectionTable table = rows.table();

} // namespace

TEST(SectionTable, KeepsItsRowsInOrder) {
    ASSERT_EQ(table.rows.size(), 6u);
    EXPECT_EQ(table.rows[0].key, L"#VEXO_A_GROUPCODE#");
    EXPECT_EQ(table.rows[1].key, L"#VEXO_A#");
    EXPECT_EQ(table.rows[1].value, "first");
    EXPECT_EQ(table.rows[5].value, "12");
    EXPECT_FALSE(table.rows[4].open);
    EXPECT_TRUE(table.rows[3].open);
    EXPECT_EQ(table.entry, nullptr);
}

TEST(SectionTable, CountsASlotForEachOpenRow) {
    EXPECT_EQ(table.slots, 2u);
    ASSERT_EQ(table.openRows.size(), 2u);
    EXPECT_EQ(table.openRows[0].row, 1u);
    EXPECT_EQ(table.openRows[0].slot, 0u);
    EXPECT_EQ(table.openRows[1].row, 3u);
    EXPECT_EQ(table.openRows[1].slot, 1u);
}

TEST(SectionTable, TextLeavesOutTheOpenValues) {
    EXPECT_EQ(table.text, "0\r\n\r\n5\r\n\r\n70\r\n12\r\n");
    EXPECT_EQ(table.openRows[0].textEnd, 3u);
    EXPECT_EQ(table.openRows[1].textEnd, 8u);
}

TEST(SectionTable, PlaceholderKnowsItsPlace) {
    constexpr Placeholder b = rows[L"#VEXO_B#"];
    EXPECT_EQ(b.key, L"#VEXO_B#");
    EXPECT_EQ(b.rows, table.rows.data());
    EXPECT_EQ(b.slot, 1u);
    EXPECT_EQ(b.entry, 0);
    constexpr Placeholder bOfThird = b.inEntry(3);
    EXPECT_EQ(bOfThird.rows, b.rows);
    EXPECT_EQ(bOfThird.slot, 1u);
    EXPECT_EQ(bOfThird.entry, 3);
    EXPECT_EQ(Placeholder(L"#VEXO_B#").rows, nullptr);
}

TEST(SectionTable, ConstantAndUnknownRowsHaveNoPlace) {
    EXPECT_THROW((void)rows[L"#VEXO_C#"], std::invalid_argument);
    EXPECT_THROW((void)rows[L"#VEXO_D#"], std::invalid_argument);
}

TEST(SectionTable, KnowsItsEntries) {
    constexpr SectionTable entry = rows.table();
    EXPECT_EQ(rows.table(&entry).entry, &entry);
}
