#include <RasterPlanWriter/TripleDouble.h>

TripleDouble::TripleDouble() noexcept
    : TripleDouble(0.0, 0.0, 0.0) {}

TripleDouble::TripleDouble(double x_, double y_, double z_) noexcept
    : x(x_)
    , y(y_)
    , z(z_) {}
