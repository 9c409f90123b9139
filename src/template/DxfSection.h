#pragma once

#include "template/OutputBuffer.h"
#include "template/SectionTable.h"
#include "template/SectionValue.h"
#include "template/SlotArray.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace rasterplan {

/// One generated DXF record: a line per placeholder, in order. A section holds only what differs from the
/// table of its class; the classes derived from it add nothing but their table and their first values.
///
/// Lines that repeat are entries: each has the lines of one table, with a number behind the keys. So an image
/// dictionary holds its images, and so the registry keeps the many sections of one class: as entries of one.
class DxfSection {
public:
    /// A record without lines; addPlaceholder gives it some.
    DxfSection() noexcept;

    /// A record with the lines of `table`, followed by those of its entry table `entries` times (none below
    /// 1). The table must outlive the section.
    explicit DxfSection(const SectionTable& table, std::int32_t entries = 0) noexcept;

    ~DxfSection();

    DxfSection(DxfSection&& other) noexcept;
    DxfSection& operator=(DxfSection&& other) noexcept;

    /// Appends a section without entries as the next entry. Throws std::bad_alloc, but not for a section of
    /// the class of the first one in which no value is set.
    void appendEntry(const DxfSection& section);

    /// Number of entries.
    std::int32_t entries() const noexcept { return m_entries; }

    /// Appends a line. A key that the section already has keeps its first value and gets a second line of it.
    /// Throws std::bad_alloc.
    void addPlaceholder(std::wstring_view key, std::wstring_view value);

    /// Sets the value of a line; false, and nothing is changed, when no line has this key. Throws
    /// std::bad_alloc.
    bool setPlaceholderValue(const Placeholder& placeholder, const SectionValue& value) {
        return setPlaceholderValue(placeholder.entry, placeholder, value);
    }

    /// The same in an entry, whatever entry the placeholder names.
    bool setPlaceholderValue(std::int32_t entry, const Placeholder& placeholder, const SectionValue& value) {
        const std::optional<std::size_t> slot = knownSlot(entry, placeholder);
        if (!slot)
            return findAndSet(placeholder.inEntry(entry), value);
        m_values.set(*slot, value);
        return true;
    }

    /// The value of a line as text, empty when no line has this key. Throws std::bad_alloc.
    std::wstring getPlaceholderValue(const Placeholder& placeholder) const;

    /// Whether getPlaceholderValue would give a text that is not empty. Throws std::bad_alloc.
    bool hasPlaceholderValue(const Placeholder& placeholder) const;

    /// The number that the value's text reads as. Throws std::invalid_argument ("invalid stod argument") when
    /// it is no number, or empty, and std::out_of_range ("stod argument out of range") when it is no double.
    double getPlaceholderNumber(const Placeholder& placeholder) const;

    /// The values of all lines, each ended by a line feed. Throws std::bad_alloc.
    std::wstring render() const;

    /// Appends the same text to `out` as UTF-8 with CR LF line ends. Throws std::range_error when a value
    /// holds a character beyond U+10FFFF; nothing is appended then.
    void render(OutputBuffer& out) const;

private:
    struct OwnTable;

    struct Line {
        const SectionRow* row;
        std::int32_t entry;              ///< Number of the entry that it stands in, or 0.
        std::optional<std::size_t> slot; ///< Where its value is, if it is open.
    };

    /// Index of the first value of an entry; 0 stands for the lines before the entries.
    std::size_t firstSlotOf(std::int32_t entry) const noexcept {
        return entry == 0 ? 0 : m_table->slots + static_cast<std::size_t>(entry - 1) * m_entryTable->slots;
    }

    /// The slot of a placeholder that knows its place in this section's table.
    std::optional<std::size_t> knownSlot(std::int32_t entry, const Placeholder& placeholder) const noexcept {
        const SectionTable* const table = entry == 0 ? m_table : m_entryTable;
        if (!placeholder.rows || !table || table->rows.data() != placeholder.rows || entry > m_entries)
            return std::nullopt;
        return firstSlotOf(entry) + placeholder.slot;
    }
    template <typename Visitor>
    void forEachLine(const Visitor& visit) const;
    bool findAndSet(const Placeholder& placeholder, const SectionValue& value);
    std::optional<Line> find(const Placeholder& placeholder) const;
    SectionValue valueOf(const Line& line) const noexcept;
    std::wstring textOf(const Line& line) const;
    template <typename Sink>
    void renderInto(Sink& sink) const;

    OwnTable& ownTable();

    const SectionTable* m_table;      ///< Owned where it is an OwnTable: the lines are not those of a class.
    const SectionTable* m_entryTable; ///< Null where nothing repeats or m_table holds the entries too.
    std::int32_t m_entries;
    SlotArray m_values;
};

} // namespace rasterplan
