#include "FailingAllocations.h"

#include <RasterPlanWriter/RasterPlanWriter.h>

#include "dxf/Drawing.h"
#include "support/Images.h"
#include "support/TestFolder.h"
#include "support/WideText.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <ios>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

using namespace rasterplan::test;

namespace {

using Result = RasterPlanWriter::ErrorEnum;

// What one run saw: results, or that std::bad_alloc came through.
struct Outcome {
    Result add = RasterPlanWriter::Success;
    Result write = RasterPlanWriter::Success;
    bool threw = false;

    bool ranOutOfMemory() const {
        return threw || add == RasterPlanWriter::UnexpectedFailure ||
               write == RasterPlanWriter::UnexpectedFailure;
    }
    bool succeeded() const {
        return !threw && add == RasterPlanWriter::Success && write == RasterPlanWriter::Success;
    }
};

const TestFolder& folder() {
    static const TestFolder folder;
    return folder;
}

const std::wstring& outputPath() {
    static const std::wstring path = wideTextOf(utf8FromPath(folder() / "plan.dxf"));
    return path;
}

const ImageParam wall =
    imageAt({1, 2, 5}, {1, 2, 3}, {5, 2, 3}, 100.0, L"a path that no small buffer holds/south.png");
const ImageParam nextWall =
    imageAt({9, 2, 5}, {9, 2, 3}, {13, 2, 3}, 100.0, L"a path that no small buffer holds/west.png");

// Runs `run` once for every allocation that it makes, with that one failing, and then once with none. Every
// run must say that it ran out of memory, and leave nothing behind.
void failEachAllocation(const std::function<Outcome()>& run) {
    EXPECT_TRUE(run().succeeded()) << "without any failure";
    for (long number = 1;; ++number) {
        const long before = livingAllocations();
        std::optional<Outcome> outcome;
        bool failed = false;
        {
            const FailingAllocation failing(number);
            outcome = run();
            failed = failing.hasFailed();
        }
        EXPECT_EQ(livingAllocations(), before) << "allocation " << number;
        if (!failed) {
            EXPECT_TRUE(outcome->succeeded()) << "no allocation failed";
            EXPECT_GT(number, 5) << "hardly any allocation was seen";
            return;
        }
        EXPECT_TRUE(outcome->ranOutOfMemory())
            << "allocation " << number << ": add " << outcome->add << ", write " << outcome->write;
    }
}

// The outcome of `work`, which sets the results.
Outcome outcomeOf(const std::function<void(Outcome&)>& work) {
    Outcome outcome;
    try {
        work(outcome);
    } catch (const std::bad_alloc&) {
        outcome.threw = true;
    }
    return outcome;
}

} // namespace

TEST(AllocationFault, ThisProgramSeesItsAllocations) {
    // Direct calls: a compiler may leave out the allocations of new expressions.
    const long before = livingAllocations();
    void* const memory = ::operator new(8);
    EXPECT_EQ(livingAllocations(), before + 1);
    ::operator delete(memory);
    EXPECT_EQ(livingAllocations(), before);

    const FailingAllocation failing(2);
    ::operator delete(::operator new(8));
    EXPECT_FALSE(failing.hasFailed());
    EXPECT_THROW(::operator delete(::operator new(8)), std::bad_alloc);
    EXPECT_TRUE(failing.hasFailed());
    ::operator delete(::operator new(8));
    EXPECT_EQ(livingAllocations(), before);
}

TEST(AllocationFault, ConstructionThrowsAndLeavesNothing) {
    bool failed = true;
    for (long number = 1; failed; ++number) {
        const long before = livingAllocations();
        bool threw = false;
        {
            const FailingAllocation failing(number);
            try {
                const RasterPlanWriter writer(L"a path that no small buffer holds/plan.dxf");
            } catch (const std::bad_alloc&) {
                threw = true;
            }
            failed = failing.hasFailed();
        }
        EXPECT_EQ(threw, failed) << "allocation " << number;
        EXPECT_EQ(livingAllocations(), before) << "allocation " << number;
    }
}

TEST(AllocationFault, AddAndWriteIn3DSayThatMemoryRanOut) {
    failEachAllocation([] {
        return outcomeOf([](Outcome& outcome) {
            RasterPlanWriter writer(outputPath().c_str());
            outcome.add = writer.add(wall);
            outcome.write = writer.create3DDxf();
        });
    });
}

TEST(AllocationFault, AddAndWriteIn2DSayThatMemoryRanOut) {
    failEachAllocation([] {
        return outcomeOf([](Outcome& outcome) {
            RasterPlanWriter writer(outputPath().c_str());
            outcome.add = writer.add(wall);
            if (outcome.add == RasterPlanWriter::Success)
                outcome.write = writer.create2DDxf({0, 0, 0}, {1, 0, 0}, {0, 0, 1});
        });
    });
}

TEST(AllocationFault, SeveralImagesIn2DSayThatMemoryRanOut) {
    failEachAllocation([] {
        return outcomeOf([](Outcome& outcome) {
            RasterPlanWriter writer(outputPath().c_str());
            for (const ImageParam* image : {&wall, &nextWall, &wall})
                if (outcome.add == RasterPlanWriter::Success)
                    outcome.add = writer.add(*image);
            TripleDouble origin, xAxis, yAxis;
            if (outcome.add == RasterPlanWriter::Success)
                outcome.add = writer.calcMiddledImagePlaneReferenceCoordSystem3D(origin, xAxis, yAxis);
            if (outcome.add == RasterPlanWriter::Success)
                outcome.write = writer.create2DDxf(origin, xAxis, yAxis);
        });
    });
}

TEST(AllocationFault, SecondWriteSaysThatMemoryRanOut) {
    failEachAllocation([] {
        return outcomeOf([](Outcome& outcome) {
            RasterPlanWriter writer(outputPath().c_str());
            outcome.add = writer.add(wall);
            if (outcome.add == RasterPlanWriter::Success)
                outcome.write = writer.create3DDxf();
            if (outcome.succeeded())
                outcome.write = writer.create2DDxf({0, 0, 0}, {1, 0, 0}, {0, 0, 1});
            if (outcome.succeeded())
                outcome.write = writer.create3DDxf();
        });
    });
}

TEST(AllocationFault, CopyingFacadesTakesNoMemory) {
    const std::wstring& path = outputPath();
    const long before = livingAllocations();
    {
        RasterPlanWriter writer(path.c_str());
        RasterPlanWriter other(path.c_str());
        ASSERT_EQ(writer.add(wall), RasterPlanWriter::Success);
        std::optional<RasterPlanWriter> last;
        {
            const FailingAllocation failing(1);
            RasterPlanWriter copy(writer);
            other = copy;
            last.emplace(std::move(other));
            writer = std::move(copy);
            EXPECT_FALSE(failing.hasFailed());
        }
        EXPECT_EQ(writer.add(nextWall), RasterPlanWriter::Success);
        EXPECT_EQ(last->create3DDxf(), RasterPlanWriter::Success);
        EXPECT_EQ(other.create3DDxf(), // NOLINT(bugprone-use-after-move): it is left without a drawing
                  RasterPlanWriter::UnexpectedFailure);
    }
    EXPECT_EQ(livingAllocations(), before);
}

TEST(AllocationFault, ProposingAPlaneThrows) {
    RasterPlanWriter writer(outputPath().c_str());
    ASSERT_EQ(writer.add(wall), RasterPlanWriter::Success);
    ASSERT_EQ(writer.add(nextWall), RasterPlanWriter::Success);
    failEachAllocation([&] {
        return outcomeOf([&](Outcome& outcome) {
            TripleDouble origin, xAxis, yAxis;
            outcome.add = writer.calcMiddledImagePlaneReferenceCoordSystem3D(origin, xAxis, yAxis);
        });
    });
}

TEST(AllocationFault, FacadeThatRanOutOfMemoryCanBeUsedAndDestroyed) {
    const std::wstring path = outputPath();
    bool failed = true;
    for (long number = 1; failed; ++number) {
        const long before = livingAllocations();
        {
            RasterPlanWriter writer(path.c_str());
            {
                const FailingAllocation failing(number);
                writer.add(wall);
                writer.create3DDxf();
                failed = failing.hasFailed();
            }
            const Result write = writer.create3DDxf();
            EXPECT_TRUE(write == RasterPlanWriter::Success || write == RasterPlanWriter::DxfFailure)
                << "allocation " << number << ": " << write;
            EXPECT_EQ(writer.add(nextWall), RasterPlanWriter::Success) << "allocation " << number;
        }
        EXPECT_EQ(livingAllocations(), before) << "allocation " << number;
    }
}

TEST(AllocationFault, ImageKeepsItsPathUnlessItGetsAnother) {
    bool failed = true;
    for (long number = 1; failed; ++number) {
        const long before = livingAllocations();
        {
            ImageParam image = wall;
            const FailingAllocation failing(number);
            bool threw = false;
            try {
                image.setImagePath(L"another path that no small buffer holds/north.png");
            } catch (const std::bad_alloc&) {
                threw = true;
            }
            failed = failing.hasFailed();
            EXPECT_EQ(threw, failed) << "allocation " << number;
            EXPECT_EQ(std::wstring_view(image.getImagePath()).ends_with(L"south.png"), failed)
                << "allocation " << number;
        }
        EXPECT_EQ(livingAllocations(), before) << "allocation " << number;
    }
}

TEST(AllocationFault, CopiesOfAnImageTakeNoMemory) {
    const long before = livingAllocations();
    {
        const FailingAllocation failing(1);
        ImageParam copy(wall);
        copy = nextWall;
        EXPECT_STREQ(copy.getImagePath(), nextWall.getImagePath());
        EXPECT_FALSE(failing.hasFailed());
        EXPECT_EQ(livingAllocations(), before);
    }
    EXPECT_EQ(livingAllocations(), before);
}

TEST(AllocationFault, ImageThatIsNotAddedDoesNotWidenTheView) {
    bool failed = true;
    for (long number = 1; failed; ++number) {
        rasterplan::Drawing drawing;
        bool threw = false;
        {
            const FailingAllocation failing(number);
            try {
                drawing.add(wall);
            } catch (const std::bad_alloc&) {
                threw = true;
            }
            failed = failing.hasFailed();
        }
        EXPECT_EQ(threw, failed) << "allocation " << number;
        EXPECT_TRUE(number > 1 || (threw && drawing.images.count() == 0));
        // The first image decides where the view looks from.
        EXPECT_EQ(drawing.viewport.createSection().direction == rasterplan::MathVector3d(), threw)
            << "allocation " << number;
    }
}

// What an operation answers whose first allocation ends in another failure.
template <typename Operation>
Result answerTo(void (*failure)(), const Operation& operation) {
    RasterPlanWriter writer(outputPath().c_str());
    EXPECT_EQ(writer.add(wall), RasterPlanWriter::Success);
    RasterPlanWriter empty(outputPath().c_str());
    const FailingAllocation failing(1, failure);
    const Result result = operation(writer, empty);
    // Nothing is expected before that: an expectation allocates.
    const bool failed = failing.hasFailed();
    if (!failed)
        throw std::logic_error("the operation allocates nothing");
    return result;
}

Result add(RasterPlanWriter&, RasterPlanWriter& empty) {
    return empty.add(nextWall);
}

Result writeFlat(RasterPlanWriter& writer, RasterPlanWriter&) {
    return writer.create2DDxf({0, 0, 0}, {1, 0, 0}, {0, 0, 1});
}

Result write(RasterPlanWriter& writer, RasterPlanWriter&) {
    return writer.create3DDxf();
}

// Passes on to a host, and is none of its own.
struct OtherFailure : std::exception {};

TEST(OtherFaults, OfTheSystemAreUnexpectedFailures) {
    constexpr void (*failures[])() = {
        [] { throw std::system_error(std::make_error_code(std::errc::io_error)); },
        [] { throw std::ios_base::failure("a stream"); },
        [] { throw std::filesystem::filesystem_error("a file", std::error_code()); },
    };
    for (const auto failure : failures)
        for (const auto operation : {add, writeFlat, write})
            EXPECT_EQ(answerTo(failure, operation), RasterPlanWriter::UnexpectedFailure);
}

TEST(OtherFaults, PassOnToTheHost) {
    for (const auto operation : {add, writeFlat, write})
        EXPECT_THROW(answerTo([] { throw OtherFailure(); }, operation), OtherFailure);
}
