#pragma once

#include "template/DxfError.h"
#include "template/DxfSectionRegistry.h"

namespace rasterplan {

/// Values that go into one section together: all of them are tried before a failure is reported.
class ValueGroup {
public:
    ValueGroup(DxfSectionRegistry& registry, SectionKey section) noexcept
        : m_filed(registry.findSection(section)) {}

    /// Writes one value. Throws std::bad_alloc.
    ValueGroup& set(const Placeholder& placeholder, const SectionValue& value) {
        m_complete &= m_filed.set(placeholder, value);
        return *this;
    }

    /// Throws DxfError when a value had no place; the message names `section`.
    void check(SectionKey section) const {
        if (!m_complete)
            throw DxfError(L"Failure while setting Map:" + section.text());
    }

private:
    FiledSection m_filed;
    bool m_complete = true;
};

} // namespace rasterplan
