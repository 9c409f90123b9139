// Facades of different threads share nothing: each writes the bytes that it writes alone.

#include <RasterPlanWriter/RasterPlanWriter.h>

#include "support/Images.h"
#include "support/TestFolder.h"
#include "support/WideText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <latch>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace rasterplan::test;

constexpr int threadCount = 4;
constexpr int exportsPerThread = 12;

// Images that differ from export to export in place, size, unit and path.
std::vector<ImageParam> imagesOf(int seed) {
    std::vector<ImageParam> images;
    for (int i = 0; i <= seed % 5; ++i) {
        const double angle = 0.1 * seed + 0.01 * i;
        const TripleDouble corner(seed * 1000.125, i * 7.3, seed + 0.7 * i);
        const TripleDouble right(corner.x + 3 * std::cos(angle), corner.y + 3 * std::sin(angle), corner.z);
        const std::wstring path = L"pläne/" + std::to_wstring(seed) + L"/" + std::to_wstring(i) + L".png";
        ImageParam image =
            imageAt({corner.x, corner.y, corner.z + 2 + i}, corner, right, 33.3 + seed, path.c_str());
        image.setDrawingUnit(static_cast<DrawingUnit>(seed % 22));
        images.push_back(image);
    }
    return images;
}

// What the export with this number answers and writes: every other one is flattened.
struct Export {
    RasterPlanWriter::ErrorEnum result = RasterPlanWriter::UnexpectedFailure;
    std::string bytes;

    friend bool operator==(const Export&, const Export&) = default;
};

Export exported(int seed, const std::filesystem::path& file) {
    RasterPlanWriter facade(wideTextOf(utf8FromPath(file)).c_str());
    Export written;
    for (const ImageParam& image : imagesOf(seed)) {
        written.result = facade.add(image);
        if (written.result != RasterPlanWriter::Success)
            return written;
    }
    if (seed % 2 == 0) {
        written.result = facade.create3DDxf();
    } else {
        TripleDouble origin, xAxis, yAxis;
        written.result = facade.calcMiddledImagePlaneReferenceCoordSystem3D(origin, xAxis, yAxis);
        if (written.result == RasterPlanWriter::Success)
            written.result = facade.create2DDxf(origin, xAxis, yAxis);
    }
    written.bytes = readBytes(file);
    return written;
}

// Runs `work` with the numbers of the threads, all begun at once.
template <typename Work>
void inThreads(const Work& work) {
    std::latch start(threadCount);
    std::vector<std::thread> threads;
    for (int number = 0; number < threadCount; ++number)
        threads.emplace_back([&work, &start, number] {
            start.arrive_and_wait();
            work(number);
        });
    for (std::thread& thread : threads)
        thread.join();
}

} // namespace

TEST(Threads, EachWritesWhatItWritesAlone) {
    const TestFolder folder;
    std::vector<Export> alone;
    for (int seed = 0; seed < threadCount * exportsPerThread; ++seed) {
        alone.push_back(exported(seed, folder / "alone.dxf"));
        ASSERT_EQ(alone.back().result, RasterPlanWriter::Success) << seed;
    }
    ASSERT_NE(alone[0].bytes, alone[2].bytes);

    std::vector<Export> together(alone.size());
    inThreads([&](int number) {
        const std::filesystem::path file = folder / (std::to_string(number) + ".dxf");
        for (int i = 0; i < exportsPerThread; ++i) {
            const int seed = number * exportsPerThread + i;
            together[static_cast<std::size_t>(seed)] = exported(seed, file);
        }
    });
    for (std::size_t seed = 0; seed < alone.size(); ++seed)
        EXPECT_TRUE(together[seed] == alone[seed]) << "export " << seed;
}

TEST(Threads, LastOfAllCopiesFreesTheDrawing) {
    const TestFolder folder;
    for (int round = 0; round < 50; ++round) {
        RasterPlanWriter first(wideTextOf(utf8FromPath(folder / "drawing.dxf")).c_str());
        ASSERT_EQ(first.add(levelImage({0, 0, 0}, 3, 2)), RasterPlanWriter::Success);
        std::vector<std::optional<RasterPlanWriter>> copies(threadCount, first);
        first = RasterPlanWriter();
        inThreads([&](int number) {
            RasterPlanWriter copy(*copies[static_cast<std::size_t>(number)]);
            copies[static_cast<std::size_t>(number)].reset();
        });
    }
}
