#pragma once

#include "dxf/DxfSectionEntities.h"
#include "dxf/Handles.h"
#include "math/MathMatrix.h"
#include "math/MathPoint3d.h"
#include "math/MathVector3d.h"

namespace rasterplan {

/// A straight line from one point to another, in drawing units: one LINE entity.
class DxfLineObj {
public:
    DxfLineObj(const MathPoint3d& start, const MathPoint3d& end) noexcept
        : m_start(start)
        , m_end(end) {}

    /// Takes the handle of a line.
    static Handle assignHandles(HandleCounter& handles) noexcept { return handles.nextHandle(); }

    /// The line's record.
    DxfSectionLineEntity createSection(Handle handle) const noexcept { return {m_start, m_end, handle}; }

    /// Transforms both points: x by `matrix`, but y and z by `frame`, the matrix of the image that the line
    /// belongs to, so that a flattened frame keeps the shape that it has in its image. A homogeneous weight
    /// of zero is not tested for. Throws as MathMatrix::transform does.
    void transform(const MathMatrix& matrix, const MathMatrix& frame) {
        const auto transformed = [&](const MathPoint3d& point) {
            const MathPoint3d inFrame = frame.transform(point);
            return MathPoint3d(matrix.transform(point).x, inFrame.y, inFrame.z);
        };
        m_start = transformed(m_start);
        m_end = transformed(m_end);
    }

    /// Moves both points.
    void translate(const MathVector3d& offset) noexcept {
        m_start = m_start + offset;
        m_end = m_end + offset;
    }

private:
    MathPoint3d m_start;
    MathPoint3d m_end;
};

} // namespace rasterplan
