#pragma once

/// Three coordinates: a point, or a direction. Nothing in the type tells which; every use says it.
/// A plain value without invariant: read and write the coordinates directly.
class TripleDouble {
public:
    /// (0, 0, 0). Never throws.
    TripleDouble() noexcept
        : TripleDouble(0.0, 0.0, 0.0) {}

    /// Stores the three values unchanged, whatever they are. Never throws.
    TripleDouble(double x_, double y_, double z_) noexcept
        : x(x_)
        , y(y_)
        , z(z_) {}

    double x; ///< First coordinate, in drawing units where the triple is a point.
    double y; ///< Second coordinate.
    double z; ///< Third coordinate.
};
