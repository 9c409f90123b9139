#include "template/DxfSection.h"

#include "base/FormatFixed.h"
#include "base/HandleText.h"
#include "base/ParseNumber.h"

#include <algorithm>
#include <array>
#include <deque>
#include <memory>
#include <utility>
#include <vector>

namespace rasterplan {
namespace {

using Kind = SectionValue::Kind;

constexpr SectionTable emptyTable{};

/// The text of a key in the entry of a number; 0 is no entry.
std::wstring numberedKey(std::wstring_view key, std::uint32_t entry) {
    std::wstring text(key);
    return entry == 0 ? text : text + std::to_wstring(entry);
}

/// Writes a value that is not a text to `out`, which has room for fixedTextCapacity characters.
char* writeNumber(const SectionValue& value, char* out) noexcept {
    switch (value.kind()) {
    case Kind::real:
        return ZelkBase::formatFixed17(value.real(), out);
    case Kind::integer:
        return ZelkBase::formatInteger(value.integer(), out);
    case Kind::handle:
        return value.handle() == Handle{} ? out : ZelkBase::formatHandle(value.handle().number, out);
    case Kind::text:
    case Kind::unset:
        break;
    }
    return out;
}

/// Takes a record as a wide text with plain line feeds.
struct WideSink {
    std::wstring text;

    void constant(std::string_view bytes) {
        for (const char c : bytes)
            if (c != '\r')
                text += static_cast<wchar_t>(c);
    }
    void value(const SectionValue& value, std::string_view valueInTable) {
        std::array<char, ZelkBase::fixedTextCapacity> number;
        if (value.kind() == Kind::text)
            text += value.text();
        else if (value.kind() == Kind::unset)
            constant(valueInTable);
        else
            text.append(number.data(), writeNumber(value, number.data()));
    }
};

/// Takes a record as the bytes of a file.
struct ByteSink {
    OutputBuffer& out;

    void constant(std::string_view bytes) { out.append(bytes); }
    void value(const SectionValue& value, std::string_view valueInTable) {
        if (value.kind() == Kind::text)
            out.appendText(value.text());
        else if (value.kind() == Kind::unset)
            out.append(valueInTable);
        else
            out.commit(writeNumber(value, out.reserve(ZelkBase::fixedTextCapacity)));
    }
};

} // namespace

/// Lines that were declared one by one: all of them open, equal keys with one slot.
struct DxfSection::OwnTable : SectionTable {
    OwnTable() { isOwn = true; }

    void add(std::wstring_view key, std::string_view value) {
        std::uint32_t slot = slots;
        for (const OpenRow& open : ownOpenRows)
            if (ownRows[open.row].key == key) {
                slot = open.slot;
                break;
            }
        ownOpenRows.push_back(
            {static_cast<std::uint32_t>(ownRows.size()), slot, static_cast<std::uint32_t>(ownText.size())});
        ownRows.push_back({keys.emplace_back(key), values.emplace_back(value), filled});
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
    , m_values(table.slots +
               (table.entry && entries > 0 ? static_cast<std::uint32_t>(entries) * table.entry->slots : 0)) {}

DxfSection::~DxfSection() {
    if (m_table->isOwn)
        delete static_cast<const OwnTable*>(m_table);
}

DxfSection::DxfSection(DxfSection&& other) noexcept
    : m_table(std::exchange(other.m_table, &emptyTable))
    , m_values(std::move(other.m_values)) {}

DxfSection& DxfSection::operator=(DxfSection&& other) noexcept {
    std::swap(m_table, other.m_table);
    m_values = std::move(other.m_values);
    return *this;
}

void DxfSection::addPlaceholder(std::wstring_view key, std::wstring_view value) {
    OwnTable& table = ownTable();
    const bool isNew = !find(key);
    table.add(key, {});
    if (!isNew)
        return;
    SlotArray values(table.slots);
    for (std::uint32_t slot = 0; slot < m_values.count(); ++slot)
        values.set(slot, m_values.get(slot));
    values.set(values.count() - 1, value);
    m_values = std::move(values);
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
    WideSink sink;
    if (const auto line = find(placeholder))
        sink.value(valueOf(*line), line->row->value);
    return sink.text;
}

bool DxfSection::hasPlaceholderValue(const Placeholder& placeholder) const {
    const auto slot = knownSlot(placeholder);
    const bool isReal = slot && m_values.get(*slot).kind() == Kind::real;
    return isReal || !getPlaceholderValue(placeholder).empty();
}

double DxfSection::getPlaceholderNumber(const Placeholder& placeholder) const {
    const auto slot = knownSlot(placeholder);
    const SectionValue value = slot ? m_values.get(*slot) : SectionValue();
    return value.kind() == Kind::real ? ZelkBase::printedValue(value.real())
                                      : ZelkBase::parseNumber(getPlaceholderValue(placeholder));
}

std::wstring DxfSection::render() const {
    WideSink sink;
    renderInto(sink);
    return sink.text;
}

void DxfSection::render(OutputBuffer& out) const {
    ByteSink sink{out};
    renderInto(sink);
}

template <typename Sink>
void DxfSection::renderInto(Sink& sink) const {
    std::uint32_t firstSlot = 0;
    const auto renderTable = [&](const SectionTable& table) {
        std::size_t textBegin = 0;
        for (const OpenRow& open : table.openRows) {
            sink.constant(table.text.substr(textBegin, open.textEnd - textBegin));
            sink.value(m_values.get(firstSlot + open.slot), table.rows[open.row].value);
            textBegin = open.textEnd;
        }
        sink.constant(table.text.substr(textBegin));
        firstSlot += table.slots;
    };
    renderTable(*m_table);
    for (std::uint32_t i = 0; i < entries(); ++i)
        renderTable(*m_table->entry);
}

template <typename Visitor>
void DxfSection::forEachLine(const Visitor& visit) const {
    std::uint32_t firstSlot = 0;
    const auto visitTable = [&](const SectionTable& table, std::uint32_t entry) {
        auto open = table.openRows.begin();
        for (std::uint32_t i = 0; i < table.rows.size(); ++i) {
            Line line{&table.rows[i], entry, std::nullopt};
            if (open != table.openRows.end() && open->row == i)
                line.slot = firstSlot + (open++)->slot;
            visit(line);
        }
        firstSlot += table.slots;
    };
    visitTable(*m_table, 0);
    for (std::uint32_t entry = 1; entry <= entries(); ++entry)
        visitTable(*m_table->entry, entry);
}

std::optional<DxfSection::Line> DxfSection::find(const Placeholder& placeholder) const {
    const std::wstring text = numberedKey(placeholder.key, static_cast<std::uint32_t>(placeholder.entry));
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

DxfSection::OwnTable& DxfSection::ownTable() {
    if (m_table->isOwn)
        return const_cast<OwnTable&>(static_cast<const OwnTable&>(*m_table));
    auto own = std::make_unique<OwnTable>();
    forEachLine([&](const Line& line) { own->add(numberedKey(line.row->key, line.entry), line.row->value); });
    SlotArray values(own->slots);
    std::uint32_t row = 0;
    forEachLine([&](const Line& line) { values.set(own->openRows[row++].slot, valueOf(line)); });
    m_values = std::move(values);
    m_table = own.get();
    return *own.release();
}

} // namespace rasterplan
