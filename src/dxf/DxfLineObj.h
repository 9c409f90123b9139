#pragma once

#include "dxf/DxfEntity.h"
#include "math/MathMatrix.h"
#include "math/MathPoint3d.h"
#include "math/MathVector3d.h"

#include <cstdint>
#include <memory>

namespace rasterplan {

/// A straight line from one point to another, in drawing units. `frame` is the frame matrix of the image that
/// the line belongs to; nobody changes it, so the lines of an image share it.
struct LineDescription {
    MathPoint3d start;
    MathPoint3d end;
    std::shared_ptr<const MathMatrix> frame;
};

/// One LINE entity.
class DxfLineObj final : public DxfEntity {
public:
    /// `number` stands for the handle until one is assigned.
    DxfLineObj(LineDescription line, std::uint32_t number) noexcept;

    std::unique_ptr<DxfEntity> clone() const override;
    DxfSection createSection() const override;

    /// Takes one handle.
    void assignHandles(DxfSectionRegistry& registry) override;
    void fillSections(DxfSectionRegistry& registry) const override;

    /// Transforms both points: x by `matrix`, but y and z by the line's own frame, so that a flattened frame
    /// keeps the shape that it has in its image. A homogeneous weight of zero is not tested for.
    void transform(const MathMatrix& matrix);

    /// Moves both points.
    void translate(const MathVector3d& offset) noexcept;

    const MathPoint3d& start() const noexcept { return m_line.start; }
    const MathPoint3d& end() const noexcept { return m_line.end; }

private:
    LineDescription m_line;
    std::uint32_t m_number;
    Handle m_handle;
};

} // namespace rasterplan
