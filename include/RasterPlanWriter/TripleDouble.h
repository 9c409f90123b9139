#pragma once

#include <RasterPlanWriter/Export.h>

/// Three coordinates: a point, or a direction. Nothing in the type tells which; every use says it.
/// A plain value without invariant: read and write the coordinates directly.
class RASTERPLANWRITER_API TripleDouble {
public:
    /// (0, 0, 0). Never throws.
    TripleDouble() noexcept;

    /// Stores the three values unchanged, whatever they are. Never throws.
    TripleDouble(double x, double y, double z) noexcept;

    double x; ///< First coordinate, in drawing units where the triple is a point.
    double y; ///< Second coordinate.
    double z; ///< Third coordinate.
};
