#pragma once

#include "template/DxfSection.h"
#include "template/SectionTable.h"

#include <gtest/gtest.h>

#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace rasterplan::test {

/// A line that a record should have: its key, what it says in a new section, and whether the drawing fills it
/// in.
struct ExpectedLine {
    std::wstring_view key;
    std::wstring_view value;
    bool isFilled = false;
};

/// The text of these lines.
inline std::wstring textOf(std::span<const ExpectedLine> lines) {
    std::wstring text;
    for (const ExpectedLine& line : lines)
        text += std::wstring(line.value) + L"\n";
    return text;
}

/// Walks a record's table: number of rows, their keys, their order, and which are open.
inline void expectTable(const SectionTable& table, std::span<const ExpectedLine> lines) {
    ASSERT_EQ(table.rows.size(), lines.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        EXPECT_EQ(table.rows[i].key, lines[i].key) << "row " << i + 1;
        EXPECT_EQ(table.rows[i].open, lines[i].isFilled) << "row " << i + 1;
    }
}

/// Checks a new section from outside: what it renders, that the lines answer to these keys in this order, and
/// that each takes a value.
inline void expectLines(DxfSection section, std::span<const ExpectedLine> lines) {
    EXPECT_EQ(section.render(), textOf(lines));
    std::set<std::wstring_view> keys;
    std::wstring numbered;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        EXPECT_TRUE(keys.insert(lines[i].key).second) << "the key of line " << i + 1 << " stands twice";
        EXPECT_EQ(section.getPlaceholderValue(lines[i].key), lines[i].value) << "line " << i + 1;
        const std::wstring number = std::to_wstring(i + 1);
        EXPECT_TRUE(section.setPlaceholderValue(lines[i].key, std::wstring_view(number))) << "line " << i + 1;
        numbered += number + L"\n";
    }
    EXPECT_EQ(section.render(), numbered);
}

} // namespace rasterplan::test
