#include "template/DxfSection.h"

#include "base/FormatFixed.h"
#include "base/HandleText.h"
#include "base/ParseNumber.h"
#include "base/Utf8.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <deque>
#include <memory>
#include <utility>
#include <vector>

namespace rasterplan {
namespace {

using Kind = SectionValue::Kind;

constexpr SectionTable emptyTable{};

/// The text of a key in the entry of a number; 0 is no entry.
std::wstring numberedKey(std::wstring_view key, std::int32_t entry) {
    std::wstring text(key);
    return entry == 0 ? text : text + std::to_wstring(entry);
}

/// Takes a record as a wide text with plain line feeds.
class WideSink {
public:
    void constant(std::string_view bytes) {
        for (const char c : bytes)
            if (c != '\r')
                m_text += static_cast<wchar_t>(c);
    }
    void text(std::wstring_view text) { m_text += text; }
    template <typename Format>
    void number(const Format& format) {
        std::array<char, ZelkBase::fixedTextCapacity> digits;
        m_text.append(digits.data(), format(digits.data()));
    }
    std::wstring take() { return std::move(m_text); }

private:
    std::wstring m_text;
};

/// Takes a record as the bytes of a file.
class ByteSink {
public:
    explicit ByteSink(OutputBuffer& out)
        : m_out(out) {}

    void constant(std::string_view bytes) { m_out.append(bytes); }
    void text(std::wstring_view text) { m_out.appendText(text); }
    template <typename Format>
    void number(const Format& format) {
        m_out.commit(format(m_out.reserve(ZelkBase::fixedTextCapacity)));
    }

private:
    OutputBuffer& m_out;
};

template <typename Sink>
void write(Sink& sink, const SectionValue& value, std::string_view valueInTable) {
    switch (value.kind()) {
    case Kind::real:
        return sink.number([&](char* out) { return ZelkBase::formatFixed17(value.real(), out); });
    case Kind::integer:
        return sink.number([&](char* out) { return ZelkBase::formatInteger(value.integer(), out); });
    case Kind::handle:
        if (value.handle() == Handle{})
            return;
        return sink.number([&](char* out) {
            return ZelkBase::formatHandle(static_cast<std::uint32_t>(value.handle().number), out);
        });
    case Kind::text:
        return sink.text(value.text());
    case Kind::plainText:
        return sink.constant(value.plainText());
    case Kind::unset:
        return sink.constant(valueInTable);
    }
}

} // namespace

/// Lines that were declared one by one: all of them open, equal keys with one slot.
struct DxfSection::OwnTable : SectionTable {
    OwnTable() { isOwn = true; }

    void add(std::wstring_view key, std::string_view value) {
        std::uint32_t slot = slots;
        for (const OpenRow& open : ownOpenRows)
            if (ownRows[open.row].key == key) {
                slot = open.slot;
                value = ownRows[open.row].value;
                break;
            }
        // Where memory runs out, the table is as it was.
        const SectionRow row{keys.emplace_back(key), values.emplace_back(value), filled};
        ownRows.reserve(ownRows.size() + 1);
        rows = ownRows;
        ownOpenRows.reserve(ownRows.size() + 1);
        openRows = ownOpenRows;
        ownText.reserve(ownText.size() + lineEnd.size());
        ownOpenRows.push_back(
            {static_cast<std::uint32_t>(ownRows.size()), slot, static_cast<std::uint32_t>(ownText.size())});
        ownRows.push_back(row);
        ownText += lineEnd;
        slots = std::max(slots, slot + 1);
        rows = ownRows;
        openRows = ownOpenRows;
        text = ownText;
    }

    std::deque<std::wstring> keys;
    std::deque<std::string> values;
    std::vector<SectionRow> ownRows;
    std::vector<OpenRow> ownOpenRows;
    std::string ownText;
};

DxfSection::DxfSection() noexcept
    : DxfSection(emptyTable) {}

DxfSection::DxfSection(const SectionTable& table, std::int32_t entries) noexcept
    : m_table(&table)
    , m_entryTable(table.entry)
    , m_entries(table.entry && entries > 0 ? entries : 0)
    , m_values(firstSlotOf(m_entries) + (m_entries == 0 ? table : *table.entry).slots) {}

DxfSection::~DxfSection() {
    if (m_table->isOwn)
        delete static_cast<const OwnTable*>(m_table);
}

DxfSection::DxfSection(DxfSection&& other) noexcept
    : m_table(std::exchange(other.m_table, &emptyTable))
    , m_entryTable(std::exchange(other.m_entryTable, nullptr))
    , m_entries(std::exchange(other.m_entries, 0))
    , m_values(std::move(other.m_values)) {}

DxfSection& DxfSection::operator=(DxfSection&& other) noexcept {
    std::swap(m_table, other.m_table);
    std::swap(m_entryTable, other.m_entryTable);
    std::swap(m_entries, other.m_entries);
    std::swap(m_values, other.m_values);
    return *this;
}

void DxfSection::appendEntry(const DxfSection& section) {
    assert(section.m_entries == 0);
    const bool isOfOneClass =
        !m_table->isOwn && !section.m_table->isOwn && (!m_entryTable || m_entryTable == section.m_table);
    if (!isOfOneClass) {
        ownTable();
        ++m_entries;
        section.forEachLine([&](const Line& line) {
            addPlaceholder(numberedKey(line.row->key, m_entries), section.textOf(line));
        });
        return;
    }
    m_entryTable = section.m_table;
    ++m_entries;
    m_values.grow(section.m_values.count());
    for (std::size_t slot = 0; slot < section.m_values.count(); ++slot) {
        const SectionValue value = section.m_values.get(slot);
        if (value.kind() != Kind::unset)
            m_values.set(firstSlotOf(m_entries) + slot, value);
    }
}

void DxfSection::addPlaceholder(std::wstring_view key, std::wstring_view value) {
    OwnTable& table = ownTable();
    const bool isNew = !find(key);
    table.add(key, {});
    if (isNew) {
        m_values.grow(1);
        m_values.set(m_values.count() - 1, value);
    }
}

bool DxfSection::findAndSet(const Placeholder& placeholder, const SectionValue& value) {
    auto line = find(placeholder);
    if (!line)
        return false;
    if (!line->slot) {
        ownTable();
        line = find(placeholder);
    }
    m_values.set(*line->slot, value);
    return true;
}

std::wstring DxfSection::getPlaceholderValue(const Placeholder& placeholder) const {
    const auto line = find(placeholder);
    return line ? textOf(*line) : std::wstring();
}

bool DxfSection::hasPlaceholderValue(const Placeholder& placeholder) const {
    const auto slot = knownSlot(placeholder.entry, placeholder);
    const bool isNumber = slot && m_values.get(*slot).kind() == Kind::real;
    return isNumber || !getPlaceholderValue(placeholder).empty();
}

double DxfSection::getPlaceholderNumber(const Placeholder& placeholder) const {
    const auto slot = knownSlot(placeholder.entry, placeholder);
    const SectionValue value = slot ? m_values.get(*slot) : SectionValue();
    return value.kind() == Kind::real ? ZelkBase::printedValue(value.real())
                                      : ZelkBase::parseNumber(getPlaceholderValue(placeholder));
}

std::wstring DxfSection::render() const {
    WideSink sink;
    renderInto(sink);
    return sink.take();
}

void DxfSection::render(OutputBuffer& out) const {
    // A text that cannot be written is found before anything of the record is.
    m_values.forEachText([](std::wstring_view text) {
        std::array<char, ZelkBase::utf8Capacity> bytes;
        for (const wchar_t c : text)
            ZelkBase::encodeUtf8(c, bytes.data());
    });
    ByteSink sink(out);
    renderInto(sink);
}

template <typename Sink>
void DxfSection::renderInto(Sink& sink) const {
    const auto renderTable = [&](const SectionTable& table, std::size_t firstSlot) {
        std::size_t textBegin = 0;
        for (const OpenRow& open : table.openRows) {
            sink.constant(table.text.substr(textBegin, open.textEnd - textBegin));
            write(sink, m_values.get(firstSlot + open.slot), table.rows[open.row].value);
            textBegin = open.textEnd;
        }
        sink.constant(table.text.substr(textBegin));
    };
    renderTable(*m_table, 0);
    for (std::int32_t entry = 1; m_entryTable && entry <= m_entries; ++entry)
        renderTable(*m_entryTable, firstSlotOf(entry));
}

template <typename Visitor>
void DxfSection::forEachLine(const Visitor& visit) const {
    const auto visitTable = [&](const SectionTable& table, std::int32_t entry) {
        auto open = table.openRows.begin();
        for (std::uint32_t i = 0; i < table.rows.size(); ++i) {
            Line line{&table.rows[i], entry, std::nullopt};
            if (open != table.openRows.end() && open->row == i)
                line.slot = firstSlotOf(entry) + (open++)->slot;
            visit(line);
        }
    };
    visitTable(*m_table, 0);
    for (std::int32_t entry = 1; m_entryTable && entry <= m_entries; ++entry)
        visitTable(*m_entryTable, entry);
}

std::optional<DxfSection::Line> DxfSection::find(const Placeholder& placeholder) const {
    const std::wstring text = numberedKey(placeholder.key, placeholder.entry);
    std::optional<Line> found;
    forEachLine([&](const Line& line) {
        if (!found && text.starts_with(line.row->key) && text == numberedKey(line.row->key, line.entry))
            found = line;
    });
    return found;
}

SectionValue DxfSection::valueOf(const Line& line) const noexcept {
    return line.slot ? m_values.get(*line.slot) : SectionValue();
}

std::wstring DxfSection::textOf(const Line& line) const {
    WideSink sink;
    write(sink, valueOf(line), line.row->value);
    return sink.take();
}

DxfSection::OwnTable& DxfSection::ownTable() {
    if (m_table->isOwn)
        return const_cast<OwnTable&>(static_cast<const OwnTable&>(*m_table));
    auto own = std::make_unique<OwnTable>();
    forEachLine([&](const Line& line) { own->add(numberedKey(line.row->key, line.entry), line.row->value); });
    SlotArray values(own->slots);
    std::size_t row = 0;
    forEachLine([&](const Line& line) { values.set(own->openRows[row++].slot, valueOf(line)); });
    m_values = std::move(values);
    m_entryTable = nullptr;
    m_table = own.get();
    return *own.release();
}

} // namespace rasterplan
