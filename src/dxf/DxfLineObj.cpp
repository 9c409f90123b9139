#include "dxf/DxfLineObj.h"

#include "dxf/DxfSectionLineEntity.h"
#include "dxf/ValueGroup.h"

#include <utility>

namespace rasterplan {

DxfLineObj::DxfLineObj(LineDescription line, std::uint32_t number) noexcept
    : m_line(std::move(line))
    , m_number(number) {}

std::unique_ptr<DxfEntity> DxfLineObj::clone() const {
    return std::make_unique<DxfLineObj>(*this);
}

DxfSection DxfLineObj::createSection() const {
    return DxfSectionLineEntity();
}

void DxfLineObj::assignHandles(DxfSectionRegistry& registry) {
    m_handle = {registry.nextHandle()};
}

void DxfLineObj::fillSections(DxfSectionRegistry& registry) const {
    constexpr auto& rows = lineEntityRows;
    constexpr Placeholder handle = rows[L"#VEXO_ENTITYLINEHANDLE#"];
    constexpr Placeholder startX = rows[L"#VEXO_ENTITYLINE_STARTPNTX#"];
    constexpr Placeholder startY = rows[L"#VEXO_ENTITYLINE_STARTPNTY#"];
    constexpr Placeholder startZ = rows[L"#VEXO_ENTITYLINE_STARTPNTZ#"];
    constexpr Placeholder endX = rows[L"#VEXO_ENTITYLINE_ENDPNTX#"];
    constexpr Placeholder endY = rows[L"#VEXO_ENTITYLINE_ENDPNTY#"];
    constexpr Placeholder endZ = rows[L"#VEXO_ENTITYLINE_ENDPNTZ#"];

    const bool hasHandle = m_handle != Handle{};
    ValueGroup(registry, sectionKey())
        .set(handle, hasHandle ? SectionValue(m_handle) : SectionValue(static_cast<std::int32_t>(m_number)))
        .set(startX, m_line.start.x)
        .set(startY, m_line.start.y)
        .set(startZ, m_line.start.z)
        .set(endX, m_line.end.x)
        .set(endY, m_line.end.y)
        .set(endZ, m_line.end.z)
        .check(sectionKey());
}

void DxfLineObj::transform(const MathMatrix& matrix) {
    const auto transformed = [&](const MathPoint3d& point) {
        const MathPoint3d inFrame = m_line.frame->transform(point);
        return MathPoint3d(matrix.transform(point).x, inFrame.y, inFrame.z);
    };
    m_line.start = transformed(m_line.start);
    m_line.end = transformed(m_line.end);
}

void DxfLineObj::translate(const MathVector3d& offset) noexcept {
    m_line.start = m_line.start + offset;
    m_line.end = m_line.end + offset;
}

} // namespace rasterplan
