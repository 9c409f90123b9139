#include "template/DxfSectionRegistry.h"

#include "template/DxfError.h"

#include <algorithm>
#include <cassert>

namespace rasterplan {

DxfSectionRegistry::DxfSectionRegistry() = default;
DxfSectionRegistry::~DxfSectionRegistry() = default;

SectionKey DxfSectionRegistry::makeInstanceKey(TopLevelKey key) noexcept {
    return {key, ++m_groups[static_cast<std::size_t>(key)].lastNumber};
}

std::vector<SectionKey> DxfSectionRegistry::instanceKeys(TopLevelKey key) const {
    const std::int32_t count = groupOf(key).lastNumber;
    if (count == 0)
        return {key};
    std::vector<SectionKey> keys;
    for (std::int32_t number = 1; number <= count; ++number)
        keys.emplace_back(key, number);
    return keys;
}

void DxfSectionRegistry::fileSection(SectionKey key, DxfSection section) {
    assert(key.isValid());
    Group& group = m_groups[static_cast<std::size_t>(key.topLevelKey())];
    assert(key.number() <= group.lastNumber);
    if (find(key) || isFiledWithoutSection(key))
        return;
    section.takeMemoryFrom(m_memory);
    if (key.number() == 0) {
        group.unnumbered = std::move(section);
        return;
    }
    group.numbered.resize(static_cast<std::size_t>(key.number() - 1));
    group.numbered.push_back(std::move(section));
}

void DxfSectionRegistry::fileSection(SectionKey key, std::nullopt_t) {
    if (!find(key) && !isFiledWithoutSection(key))
        m_filedWithoutSection.push_back(key);
}

bool DxfSectionRegistry::setSectionValue(SectionKey key, const Placeholder& placeholder,
                                         const SectionValue& value) {
    DxfSection* const section = findSection(key);
    return section && section->setPlaceholderValue(placeholder, value);
}

std::wstring DxfSectionRegistry::getSectionValue(SectionKey key, const Placeholder& placeholder) const {
    const DxfSection* const section = findForReading(key);
    return section ? section->getPlaceholderValue(placeholder) : std::wstring();
}

bool DxfSectionRegistry::hasSectionValue(SectionKey key, const Placeholder& placeholder) const {
    const DxfSection* const section = findForReading(key);
    return section && section->hasPlaceholderValue(placeholder);
}

double DxfSectionRegistry::getSectionNumber(SectionKey key, const Placeholder& placeholder) const {
    const DxfSection* const section = findForReading(key);
    return section ? section->getPlaceholderNumber(placeholder)
                   : DxfSection().getPlaceholderNumber(placeholder);
}

std::wstring DxfSectionRegistry::renderPlaceholder(std::wstring_view line) const {
    std::wstring text;
    forEachSection(line, [&](const DxfSection& section) { text += section.render(); });
    return text;
}

void DxfSectionRegistry::renderPlaceholder(std::wstring_view line, OutputBuffer& out) const {
    forEachSection(line, [&](const DxfSection& section) { section.render(out); });
}

template <typename Visitor>
void DxfSectionRegistry::forEachSection(std::wstring_view line, const Visitor& visit) const {
    const auto key = findTopLevelKey(line);
    if (!key)
        return;
    const Group& group = groupOf(*key);
    if (group.lastNumber == 0) {
        if (group.unnumbered)
            visit(*group.unnumbered);
        return;
    }
    for (const DxfSection& section : group.numbered)
        visit(section);
}

const DxfSectionRegistry::Group& DxfSectionRegistry::groupOf(SectionKey key) const noexcept {
    return m_groups[static_cast<std::size_t>(key.topLevelKey())];
}

const DxfSection* DxfSectionRegistry::find(SectionKey key) const noexcept {
    if (!key.isValid())
        return nullptr;
    const Group& group = groupOf(key);
    if (key.number() == 0)
        return group.unnumbered ? &*group.unnumbered : nullptr;
    const auto index = static_cast<std::size_t>(key.number() - 1);
    return index < group.numbered.size() ? &group.numbered[index] : nullptr;
}

const DxfSection* DxfSectionRegistry::findForReading(SectionKey key) const {
    if (isFiledWithoutSection(key))
        throw DxfError(L"Section NUll pointer");
    return find(key);
}

bool DxfSectionRegistry::isFiledWithoutSection(SectionKey key) const noexcept {
    return std::find(m_filedWithoutSection.begin(), m_filedWithoutSection.end(), key) !=
           m_filedWithoutSection.end();
}

} // namespace rasterplan
