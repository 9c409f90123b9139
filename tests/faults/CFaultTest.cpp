#include "FailingAllocations.h"

#include <RasterPlanWriterC/RasterPlanWriterC.h>

#include "support/TestFolder.h"

#include <gtest/gtest.h>

#include <string>

using namespace rasterplan::test;

namespace {

constexpr double origin[] = {0, 0, 0};
constexpr double xAxis[] = {1, 0, 0};
constexpr double yAxis[] = {0, 0, 1};

// What the calls of one export answer, to the first that is no success.
RpwResult exported(const std::string& path, bool flat) {
    RpwDrawing* drawing = nullptr;
    RpwPlace place = {};
    double o[3], x[3], y[3];
    RpwResult result = rpwCreateUtf8(path.c_str(), &drawing);
    const auto next = [&](auto&& call) { result = result == RpwSuccess ? call() : result; };
    next([&] { return rpwMeasure(yAxis, origin, xAxis, &place); });
    for (int i = 0; i < 2; ++i)
        next([&] {
            return rpwAddUtf8(drawing, "a path that no small buffer holds/south.png", yAxis, origin, xAxis,
                              100, 6);
        });
    next([&] { return rpwProposePlane(drawing, o, x, y); });
    next([&] { return flat ? rpwWrite2d(drawing, o, x, y) : rpwWrite3d(drawing); });
    rpwDestroy(drawing);
    return result;
}

// What calls answer that throw inside.
RpwResult refused() {
    RpwPlace place = {};
    return rpwMeasure(origin, origin, xAxis, &place);
}

// Lets each allocation of a call fail: then it says so, otherwise as without, and nothing is left.
template <typename Call>
void failEachAllocation(RpwResult usual, const Call& call) {
    EXPECT_EQ(call(), usual) << "without any failure";
    for (long number = 1, failed = 1; failed; ++number) {
        const long before = livingAllocations();
        RpwResult result = RpwSuccess;
        {
            const FailingAllocation failing(number);
            result = call();
            failed = failing.hasFailed();
        }
        EXPECT_EQ(result, failed ? RpwUnexpectedFailure : usual) << "allocation " << number;
        EXPECT_EQ(livingAllocations(), before) << "allocation " << number;
        EXPECT_TRUE(failed || number > 5) << "hardly any allocation was seen";
    }
}

} // namespace

TEST(AllocationFault, ExportIn3DByTheCLibrarySaysThatMemoryRanOut) {
    const TestFolder test;
    const std::string path = utf8FromPath(test / "plan.dxf");
    failEachAllocation(RpwSuccess, [&] { return exported(path, false); });
}

TEST(AllocationFault, ExportIn2DByTheCLibrarySaysThatMemoryRanOut) {
    const TestFolder test;
    const std::string path = utf8FromPath(test / "plan.dxf");
    failEachAllocation(RpwSuccess, [&] { return exported(path, true); });
}

TEST(AllocationFault, RefusalByTheCLibrarySaysThatMemoryRanOut) {
    failEachAllocation(RpwInvalidGeometry, refused);
}
