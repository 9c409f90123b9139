#pragma once

#include "template/DxfSection.h"
#include "template/DxfSectionRegistry.h"
#include "template/SectionKey.h"

#include <memory>

namespace rasterplan {

/// What a drawing holds: an object that gets its section and its handles from the registry and then writes
/// its values there. For every document the calls are createSection, assignHandles, fillSections, in this
/// order.
class DxfEntity {
public:
    virtual ~DxfEntity() = default;

    /// An independent copy. Throws std::bad_alloc.
    virtual std::unique_ptr<DxfEntity> clone() const = 0;

    /// A new section for the object's own record.
    virtual DxfSection createSection() const = 0;

    /// Takes the object's handles from the registry.
    virtual void assignHandles(DxfSectionRegistry& registry) = 0;

    /// Writes the object's values into the registry's sections. Throws DxfError when one has no place there;
    /// what was written before stays.
    virtual void fillSections(DxfSectionRegistry& registry) const = 0;

    /// The key under which the object's section is filed.
    SectionKey sectionKey() const noexcept { return m_sectionKey; }
    void setSectionKey(SectionKey key) noexcept { m_sectionKey = key; }

protected:
    DxfEntity() = default;
    DxfEntity(const DxfEntity&) = default;
    DxfEntity& operator=(const DxfEntity&) = default;

private:
    SectionKey m_sectionKey;
};

} // namespace rasterplan
