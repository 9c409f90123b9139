#include "site/Plane.h"

#include <gtest/gtest.h>

namespace rasterplan_tool {

TEST(Plane, TwoDirectionsSpanOneUnlessParallel) {
    EXPECT_TRUE(spansPlane({{}, {1, 0, 0}, {1, 1, 0}}));
    EXPECT_TRUE(spansPlane({{}, {1e-300, 0, 0}, {0, 1e18, 0}}));
    EXPECT_FALSE(spansPlane({{}, {0, 0, 0}, {0, 1, 0}}));
    EXPECT_FALSE(spansPlane({{}, {1, 0, 0}, {0, 0, 0}}));
    EXPECT_FALSE(spansPlane({{}, {1, 1, 1}, {-2, -2, -2}}));
    EXPECT_FALSE(spansPlane({{}, {1, 1, 1}, {1, 1, 1 + 1e-9}}));
}

} // namespace rasterplan_tool
