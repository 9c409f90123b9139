#include "base/Parallel.h"

#include "base/Failure.h"
#include "base/Resources.h"

#include <gtest/gtest.h>

#include <atomic>
#include <new>
#include <thread>
#include <vector>

namespace rasterplan_tool {

TEST(Parallel, EveryPartIsDoneOnceAndToldToTheCallerAlone) {
    for (const std::size_t count : {0U, 1U, 15U, 16U, 1000U}) {
        std::vector<std::atomic<int>> done(count);
        const auto caller = std::this_thread::get_id();
        std::size_t told = 0;
        inParallel(
            count, [&](std::size_t i) { ++done[i]; },
            [&](std::size_t parts) {
                EXPECT_EQ(std::this_thread::get_id(), caller);
                EXPECT_GT(parts, told);
                told = parts;
            });
        EXPECT_LE(told, count);
        for (const std::atomic<int>& each : done)
            EXPECT_EQ(each, 1);
    }
}

TEST(Parallel, ThreadsWorkAtTheSameTime) {
    if (std::thread::hardware_concurrency() < 2)
        GTEST_SKIP() << "this machine has one core";
    std::atomic<int> met = 0;
    inParallel(
        32,
        [&](std::size_t i) {
            if (i > 1)
                return;
            ++met; // the first two parts wait for each other
            while (met < 2)
                std::this_thread::yield();
        },
        [](std::size_t) {});
    EXPECT_EQ(met, 2);
}

TEST(Parallel, FailureOfTheFirstPartIsThrownOn) {
    for (int run = 0; run < 50; ++run) {
        const auto failing = [](std::size_t i) {
            if (i == 40)
                throw ExportFailed("40");
            if (i >= 60)
                throw BadInput("60 or more");
        };
        EXPECT_THROW(inParallel(100, failing, [](std::size_t) {}), ExportFailed);
    }
    EXPECT_THROW(inParallel(
                     100, [](std::size_t) { throw std::bad_alloc(); }, [](std::size_t) {}),
                 std::bad_alloc);
}

TEST(Parallel, MemoryThatRunsOutInAThreadIsNoted) {
    const MemoryWatch watch;
    EXPECT_THROW(inParallel(
                     100, [](std::size_t) { std::get_new_handler()(); }, [](std::size_t) {}),
                 std::bad_alloc);
    EXPECT_TRUE(watch.ranOut());
}

} // namespace rasterplan_tool
