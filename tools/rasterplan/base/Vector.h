#pragma once

#include <RasterPlanWriter/TripleDouble.h>

#include <cmath>

namespace rasterplan_tool {

/// Sum of two triples.
inline TripleDouble operator+(const TripleDouble& a, const TripleDouble& b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}

/// Difference of two triples.
inline TripleDouble operator-(const TripleDouble& a, const TripleDouble& b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

/// A triple, scaled.
inline TripleDouble operator*(double factor, const TripleDouble& a) {
    return {factor * a.x, factor * a.y, factor * a.z};
}

/// Scalar product.
inline double dot(const TripleDouble& a, const TripleDouble& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

/// Vector product.
inline TripleDouble cross(const TripleDouble& a, const TripleDouble& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

/// Length, without overflow or underflow on the way.
inline double length(const TripleDouble& a) {
    // That of two values is the C library's own, and in glibc newer than what the archive may need.
    return std::hypot(a.x, a.y, a.z);
}

/// The unit vector of that direction; zero stays zero.
inline TripleDouble direction(const TripleDouble& a) {
    const double size = length(a);
    return size > 0.0 ? TripleDouble(a.x / size, a.y / size, a.z / size) : a;
}

/// The angle between two directions in degrees, 0 to 180; accurate for small angles too.
inline double angleDegrees(const TripleDouble& a, const TripleDouble& b) {
    constexpr double degreesPerRadian = 57.295779513082320877;
    return std::atan2(length(cross(a, b)), dot(a, b)) * degreesPerRadian;
}

} // namespace rasterplan_tool
