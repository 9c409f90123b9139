#pragma once

#include <RasterPlanWriter/TripleDouble.h>

#include <cmath>
#include <ostream>

namespace rasterplan::test {

// The little vector arithmetic that the tests need, independent of the library's own.

inline TripleDouble plus(const TripleDouble& a, const TripleDouble& b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}

inline TripleDouble minus(const TripleDouble& a, const TripleDouble& b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

inline TripleDouble times(const TripleDouble& a, double factor) {
    return {a.x * factor, a.y * factor, a.z * factor};
}

inline double dot(const TripleDouble& a, const TripleDouble& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

inline TripleDouble cross(const TripleDouble& a, const TripleDouble& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

inline double length(const TripleDouble& a) {
    return std::sqrt(dot(a, a));
}

inline double distance(const TripleDouble& a, const TripleDouble& b) {
    return length(minus(a, b));
}

inline TripleDouble normalized(const TripleDouble& a) {
    return times(a, 1.0 / length(a));
}

/// The largest difference of a coordinate.
inline double largestDifference(const TripleDouble& a, const TripleDouble& b) {
    const TripleDouble d = minus(a, b);
    return std::fmax(std::fabs(d.x), std::fmax(std::fabs(d.y), std::fabs(d.z)));
}

} // namespace rasterplan::test

inline bool operator==(const TripleDouble& a, const TripleDouble& b) {
    return a.x == b.x && a.y == b.y && a.z == b.z;
}

inline std::ostream& operator<<(std::ostream& out, const TripleDouble& a) {
    return out << '(' << a.x << ", " << a.y << ", " << a.z << ')';
}
