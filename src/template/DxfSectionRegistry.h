#pragma once

#include "template/DxfSection.h"
#include "template/OutputBuffer.h"
#include "template/SectionKey.h"
#include "template/TopLevelKey.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace rasterplan {

/// A section as the registry keeps it: by itself, or as an entry (from 1) of the one that holds all of its
/// class. Null stands for none.
template <typename Section>
struct Filed {
    Section* section = nullptr;
    std::int32_t entry = 0;

    /// Where a placeholder of the filed section is found.
    Placeholder at(const Placeholder& placeholder) const noexcept {
        return entry == 0 ? placeholder : placeholder.inEntry(entry);
    }

    /// Sets a value; false, and nothing is changed, without a section or such a line in it. Throws
    /// std::bad_alloc.
    bool set(const Placeholder& placeholder, const SectionValue& value) const {
        return section &&
               section->setPlaceholderValue(entry == 0 ? placeholder.entry : entry, placeholder, value);
    }
};
using FiledSection = Filed<DxfSection>;

/// Stores the sections of a document under their keys, numbers them, hands out handles and expands the
/// template's placeholder lines. Nothing is ever taken out: a second document continues numbers and handles.
class DxfSectionRegistry {
public:
    DxfSectionRegistry();
    ~DxfSectionRegistry();

    DxfSectionRegistry(const DxfSectionRegistry&) = delete;
    DxfSectionRegistry& operator=(const DxfSectionRegistry&) = delete;

    /// The section filed under `key`, or none. It stays valid as long as the registry lives.
    FiledSection findSection(SectionKey key) noexcept {
        const auto [section, entry] = find(key);
        return {const_cast<DxfSection*>(section), entry};
    }

    /// The next handle number. The first is 126 (7E): lower ones belong to the template's own records.
    std::int32_t nextHandle() noexcept { return ++m_lastHandle; }

    /// The next numbered key of a top-level key, from 1.
    SectionKey makeInstanceKey(TopLevelKey key) noexcept;

    /// The numbered keys made so far, ascending, or the key itself when there is none. Throws std::bad_alloc.
    std::vector<SectionKey> instanceKeys(TopLevelKey key) const;

    /// Files a section under a valid key. A key that is taken keeps what it has. The sections of a numbered
    /// key are filed in the order in which makeInstanceKey gave the numbers. Throws
    /// std::bad_alloc.
    void fileSection(SectionKey key, DxfSection section);

    /// Files that there is no section under a key.
    void fileSection(SectionKey key, std::nullopt_t);

    /// Sets a value in the section filed under `key`; false, and nothing is changed, without such a section
    /// or such a line in it. Throws std::bad_alloc.
    bool setSectionValue(SectionKey key, const Placeholder& placeholder, const SectionValue& value);

    /// A value of the section filed under `key` as text, empty without such a section or such a line in it.
    /// Throws DxfError when the key is filed without a section.
    std::wstring getSectionValue(SectionKey key, const Placeholder& placeholder) const;

    /// The same section, to read several values of it; none without one. Throws as getSectionValue does.
    Filed<const DxfSection> findSectionForReading(SectionKey key) const;

    /// The text of all sections filed for a line of the template, in ascending number; empty when the line is
    /// no top-level key or nothing is filed for it. Throws std::bad_alloc.
    std::wstring renderPlaceholder(std::wstring_view line) const;

    /// Appends the same text to `out`, as DxfSection::render does. Throws std::range_error as that.
    void renderPlaceholder(std::wstring_view line, OutputBuffer& out) const;

private:
    /// What is filed for one top-level key.
    struct Group {
        std::optional<DxfSection> unnumbered;
        DxfSection numbered; ///< Its entries are the numbered sections.
        std::int32_t lastNumber = 0;
    };

    const Group& groupOf(SectionKey key) const noexcept;
    Filed<const DxfSection> find(SectionKey key) const noexcept;
    bool isFiledWithoutSection(SectionKey key) const noexcept;
    const DxfSection* sectionToRender(std::wstring_view line) const noexcept;

    std::array<Group, topLevelKeyTexts.size()> m_groups;
    std::vector<SectionKey> m_filedWithoutSection;
    std::int32_t m_lastHandle = 125;
};

} // namespace rasterplan
