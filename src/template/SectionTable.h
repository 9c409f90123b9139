#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <string_view>

namespace rasterplan {

/// One line of a record: the placeholder that names it, what it says at first (ASCII), and whether a section
/// may say something else without a table of its own.
struct SectionRow {
    std::wstring_view key;
    std::string_view value;
    bool open = false;
};

/// Marks a row whose value the drawing fills in.
inline constexpr bool filled = true;

/// An open line between the constant ones.
struct OpenRow {
    std::uint32_t row;     ///< Index of its row.
    std::uint32_t slot;    ///< Index of its value in the section.
    std::uint32_t textEnd; ///< Where its value stands in the table's text.
};

/// A name of a section's line. From a table's operator[] it also knows the place, so that setting a value
/// searches nothing; from a text it is found by comparing.
struct Placeholder {
    constexpr Placeholder(std::wstring_view name) noexcept
        : key(name) {}
    constexpr Placeholder(const wchar_t* name) noexcept
        : key(name) {}
    constexpr Placeholder(std::wstring_view name, const SectionRow* rowsOfTable, std::uint32_t slotInTable,
                          std::int32_t number = 0) noexcept
        : key(name)
        , rows(rowsOfTable)
        , slot(slotInTable)
        , entry(number) {}

    /// The line of this name in entry `number` (from 1) of a table with repeated entries; its text is the key
    /// directly followed by the number.
    constexpr Placeholder inEntry(std::int32_t number) const noexcept { return {key, rows, slot, number}; }

    std::wstring_view key;
    const SectionRow* rows = nullptr; ///< Those of the table in which it knows its place.
    std::uint32_t slot = 0;           ///< Its place there.
    std::int32_t entry = 0;
};

/// What ends every line of a drawing.
inline constexpr std::string_view lineEnd = "\r\n";

/// The lines of a record, shared by all its sections: each constant text exists here once. All that stands
/// between two open values, line ends included, is one text, because so it is written.
struct SectionTable {
    std::span<const SectionRow> rows;    ///< Every line, in output order.
    std::span<const OpenRow> openRows;   ///< The open ones, in output order.
    std::string_view text;               ///< The record without its open values.
    std::uint32_t slots = 0;             ///< Number of values that a section holds.
    const SectionTable* entry = nullptr; ///< Lines that follow once per entry, or null. Keys are numbered.
    bool isOwn = false;                  ///< It belongs to one section only, not to a class.
};

/// Builds a SectionTable from its rows at compile time. Define it with `auto x = RecordTable({...})`: of a
/// type that is not complete before the definition, g++ puts a constant among the writable data, or not, file
/// by file, and the linker for Windows refuses to merge the two.
template <std::size_t RowCount>
class RecordTable {
public:
    constexpr explicit RecordTable(const SectionRow (&rows)[RowCount]) {
        for (std::size_t i = 0; i < RowCount; ++i) {
            m_rows[i] = rows[i];
            if (rows[i].open) {
                m_openRows[m_openCount] = {static_cast<std::uint32_t>(i),
                                           static_cast<std::uint32_t>(m_openCount),
                                           static_cast<std::uint32_t>(m_textLength)};
                ++m_openCount;
            } else {
                for (const char c : rows[i].value)
                    m_text[m_textLength++] = c;
            }
            for (const char c : lineEnd)
                m_text[m_textLength++] = c;
        }
    }

    /// The place of an open row. A key without one does not compile where the result is a constant.
    constexpr Placeholder operator[](std::wstring_view key) const {
        for (std::size_t i = 0; i < m_openCount; ++i)
            if (m_rows[m_openRows[i].row].key == key)
                return {key, m_rows.data(), m_openRows[i].slot};
        throw std::invalid_argument("the table has no open row of this key");
    }

    /// The table as sections see it; it refers to this object. `entry`: see SectionTable.
    constexpr SectionTable table(const SectionTable* entry = nullptr) const noexcept {
        return {m_rows,
                std::span(m_openRows).first(m_openCount),
                {m_text.data(), m_textLength},
                static_cast<std::uint32_t>(m_openCount),
                entry};
    }

private:
    std::array<SectionRow, RowCount> m_rows{};
    std::array<OpenRow, RowCount> m_openRows{};
    std::array<char, 16 * RowCount> m_text{};
    std::size_t m_openCount = 0;
    std::size_t m_textLength = 0;
};

} // namespace rasterplan
