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
    if (find(key).section || isFiledWithoutSection(key))
        return;
    Group& group = m_groups[static_cast<std::size_t>(key.topLevelKey())];
    if (key.number() == 0) {
        group.unnumbered = std::move(section);
        return;
    }
    assert(key.number() == group.numbered.entries() + 1 && key.number() <= group.lastNumber);
    group.numbered.appendEntry(section);
}

void DxfSectionRegistry::fileSection(SectionKey key, std::nullopt_t) {
    if (!find(key).section && !isFiledWithoutSection(key))
        m_filedWithoutSection.push_back(key);
}

bool DxfSectionRegistry::setSectionValue(SectionKey key, const Placeholder& placeholder,
                                         const SectionValue& value) {
    return findSection(key).set(placeholder, value);
}

std::wstring DxfSectionRegistry::getSectionValue(SectionKey key, const Placeholder& placeholder) const {
    const Filed<const DxfSection> found = findSectionForReading(key);
    return found.section ? found.section->getPlaceholderValue(found.at(placeholder)) : std::wstring();
}

std::wstring DxfSectionRegistry::renderPlaceholder(std::wstring_view line) const {
    const DxfSection* const section = sectionToRender(line);
    return section ? section->render() : std::wstring();
}

void DxfSectionRegistry::renderPlaceholder(std::wstring_view line, OutputBuffer& out) const {
    if (const DxfSection* const section = sectionToRender(line))
        section->render(out);
}

const DxfSection* DxfSectionRegistry::sectionToRender(std::wstring_view line) const noexcept {
    const auto key = findTopLevelKey(line);
    if (!key)
        return nullptr;
    const Group& group = groupOf(*key);
    return group.lastNumber == 0 ? find(*key).section : &group.numbered;
}

const DxfSectionRegistry::Group& DxfSectionRegistry::groupOf(SectionKey key) const noexcept {
    return m_groups[static_cast<std::size_t>(key.topLevelKey())];
}

Filed<const DxfSection> DxfSectionRegistry::find(SectionKey key) const noexcept {
    if (!key.isValid())
        return {};
    const Group& group = groupOf(key);
    if (key.number() == 0)
        return {group.unnumbered ? &*group.unnumbered : nullptr, 0};
    return {key.number() <= group.numbered.entries() ? &group.numbered : nullptr, key.number()};
}

Filed<const DxfSection> DxfSectionRegistry::findSectionForReading(SectionKey key) const {
    if (isFiledWithoutSection(key))
        throw DxfError(L"Section NUll pointer");
    return find(key);
}

bool DxfSectionRegistry::isFiledWithoutSection(SectionKey key) const noexcept {
    return std::find(m_filedWithoutSection.begin(), m_filedWithoutSection.end(), key) !=
           m_filedWithoutSection.end();
}

} // namespace rasterplan
