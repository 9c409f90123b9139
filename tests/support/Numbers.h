#pragma once

#include <limits>

namespace rasterplan::test {

inline constexpr double infinity = std::numeric_limits<double>::infinity();
inline constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
inline constexpr double pi = 3.141592653589793;

} // namespace rasterplan::test
