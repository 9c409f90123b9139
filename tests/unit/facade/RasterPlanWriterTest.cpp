#include <RasterPlanWriter/RasterPlanWriter.h>

#include "support/Images.h"
#include "support/TestFolder.h"
#include "support/WideText.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <utility>

namespace fs = std::filesystem;
using namespace rasterplan::test;

namespace {

// A facade that writes to a folder of its own.
class RasterPlanWriterFacade : public testing::Test {
protected:
    std::string drawing() const { return readBytes(path()); }
    bool isWritten() const { return fs::exists(path()); }
    fs::path path() const {
        return m_folder / "pl\xC3\xA4"
                          "ne.dxf";
    }

private:
    TestFolder m_folder;

protected:
    RasterPlanWriter writer{wideTextOf(utf8FromPath(path())).c_str()};
};

std::size_t occurrences(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size()))
        ++count;
    return count;
}

const ImageParam plan = levelImage({0, 0, 0}, 4, 2);

} // namespace

TEST(RasterPlanWriter, SpareNamesAreThere) {
    EXPECT_EQ(fnRasterPlanWriter(), 42);
    EXPECT_EQ(nRasterPlanWriter, 0);
}

TEST(RasterPlanWriter, ResultsHaveTheirNumbers) {
    EXPECT_EQ(RasterPlanWriter::Success, 0);
    EXPECT_EQ(RasterPlanWriter::NoImage, 1);
    EXPECT_EQ(RasterPlanWriter::InvalidGeometry, 2);
    EXPECT_EQ(RasterPlanWriter::CannotOpenOutput, 3);
    EXPECT_EQ(RasterPlanWriter::CannotOpenTemplate, 4);
    EXPECT_EQ(RasterPlanWriter::DxfFailure, 5);
    EXPECT_EQ(RasterPlanWriter::UnexpectedFailure, 6);
}

TEST(RasterPlanWriter, WritesTestDxfUnlessToldOtherwise) {
    const TestFolder folder;
    const fs::path current = fs::current_path();
    fs::current_path(folder.path());
    RasterPlanWriter writer;
    writer.add(plan);
    const RasterPlanWriter::ErrorEnum result = writer.create3DDxf();
    fs::current_path(current);
    EXPECT_EQ(result, RasterPlanWriter::Success);
    EXPECT_TRUE(readBytes(folder / "test.dxf").ends_with("\r\nEOF\r\n"));
}

TEST_F(RasterPlanWriterFacade, WritesImagesWithTheirFrames) {
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(writer.add(levelImage({10.0 * i, 0, 0}, 4, 2)), RasterPlanWriter::Success);
    EXPECT_FALSE(isWritten());
    EXPECT_EQ(writer.create3DDxf(), RasterPlanWriter::Success);
    EXPECT_EQ(occurrences(drawing(), "\r\n0\r\nIMAGE\r\n"), 3u);
    EXPECT_EQ(occurrences(drawing(), "\r\n0\r\nLINE\r\n"), 18u);
    EXPECT_EQ(occurrences(drawing(), "#VEXO_"), 0u);
}

TEST_F(RasterPlanWriterFacade, RefusesWhatIsNoRectangle) {
    EXPECT_EQ(writer.add(ImageParam(L"plan.png")), RasterPlanWriter::InvalidGeometry);
    EXPECT_EQ(writer.add(imageAt({1, 1, 0}, {0, 0, 0}, {1, 0, 0})), RasterPlanWriter::InvalidGeometry);
    TripleDouble origin, xAxis, yAxis;
    EXPECT_EQ(writer.calcMiddledImagePlaneReferenceCoordSystem3D(origin, xAxis, yAxis),
              RasterPlanWriter::NoImage);
}

TEST_F(RasterPlanWriterFacade, WithoutImagesTouchesNoFileWhereItNeedsOne) {
    TripleDouble origin(1, 2, 3), xAxis(4, 5, 6), yAxis(7, 8, 9);
    EXPECT_EQ(writer.calcMiddledImagePlaneReferenceCoordSystem3D(origin, xAxis, yAxis),
              RasterPlanWriter::NoImage);
    EXPECT_EQ(origin.x, 1.0);
    EXPECT_EQ(xAxis.y, 5.0);
    EXPECT_EQ(yAxis.z, 9.0);
    EXPECT_EQ(writer.create2DDxf({0, 0, 0}, {1, 0, 0}, {1, 0, 0}), RasterPlanWriter::NoImage);
    EXPECT_FALSE(isWritten());
}

TEST_F(RasterPlanWriterFacade, WithoutImages3DStopsAtTheFirstRecordOfAnImage) {
    EXPECT_EQ(writer.create3DDxf(), RasterPlanWriter::DxfFailure);
    EXPECT_TRUE(isWritten());
    EXPECT_EQ(occurrences(drawing(), "EOF"), 0u);
}

TEST_F(RasterPlanWriterFacade, ProposesAPlaneAndWritesInIt) {
    EXPECT_EQ(writer.add(imageAt({1, 2, 5}, {1, 2, 3}, {5, 2, 3})), RasterPlanWriter::Success);
    TripleDouble origin, xAxis, yAxis;
    EXPECT_EQ(writer.calcMiddledImagePlaneReferenceCoordSystem3D(origin, xAxis, yAxis),
              RasterPlanWriter::Success);
    EXPECT_EQ(origin.x, 1.0);
    EXPECT_EQ(origin.y, 2.0);
    EXPECT_EQ(origin.z, 3.0);
    EXPECT_EQ(xAxis.x, 1.0);
    EXPECT_EQ(yAxis.z, 1.0);
    EXPECT_EQ(writer.create2DDxf(origin, xAxis, yAxis), RasterPlanWriter::Success);
    EXPECT_EQ(occurrences(drawing(), "AcDbRasterImage\r\n90\r\n0\r\n10\r\n0.00000000000000000\r\n"
                                     "20\r\n3.00000000000000000\r\n30\r\n0.00000000000000000\r\n"),
              1u);
}

TEST_F(RasterPlanWriterFacade, PlaneThatCannotBeDerivedLeavesTheResults) {
    EXPECT_EQ(writer.add(plan), RasterPlanWriter::Success);
    EXPECT_EQ(writer.add(imageAt({0, -1, 0}, {0, 0, 0}, {1, 0, 0})), RasterPlanWriter::Success);
    TripleDouble origin(1, 2, 3), xAxis(4, 5, 6), yAxis(7, 8, 9);
    EXPECT_EQ(writer.calcMiddledImagePlaneReferenceCoordSystem3D(origin, xAxis, yAxis),
              RasterPlanWriter::InvalidGeometry);
    EXPECT_EQ(origin.x, 1.0);
    EXPECT_EQ(xAxis.y, 5.0);
    EXPECT_EQ(yAxis.z, 9.0);
}

TEST_F(RasterPlanWriterFacade, GeometryThatCannotBeFlattenedIsPassedOn) {
    EXPECT_EQ(writer.add(plan), RasterPlanWriter::Success);
    EXPECT_THROW(writer.create2DDxf({0, 0, 0}, {0, 0, 0}, {0, 1, 0}), std::exception);
    EXPECT_THROW(writer.create2DDxf({0, 0, 0}, {1, 0, 0}, {0, 0, 0}), std::exception);
    try {
        writer.create2DDxf({0, 0, 0}, {1, 0, 0}, {1, 0, 0});
        ADD_FAILURE() << "the axes were taken";
    } catch (const std::exception& error) {
        EXPECT_STREQ(error.what(), "Numerical exception: Singular matrix in routine ludcmp");
    }
    EXPECT_FALSE(isWritten());
}

TEST_F(RasterPlanWriterFacade, SecondWriteHoldsTheRecordsOfBoth) {
    EXPECT_EQ(writer.add(plan), RasterPlanWriter::Success);
    EXPECT_EQ(writer.create3DDxf(), RasterPlanWriter::Success);
    const std::string first = drawing();
    EXPECT_EQ(writer.create3DDxf(), RasterPlanWriter::Success);
    const std::string second = drawing();
    for (const char* const record : {"\r\n0\r\nLINE\r\n5\r\n", "AcDbRasterImage\r\n90\r\n",
                                     "\r\n0\r\nIMAGEDEF\r\n5\r\n", "0\r\nIMAGEDEF_REACTOR\r\n5\r\n"})
        EXPECT_EQ(occurrences(second, record), 2 * occurrences(first, record)) << record;
    EXPECT_EQ(occurrences(first, "$HANDSEED\r\n5\r\n87\r\n"), 1u);
    EXPECT_EQ(occurrences(second, "$HANDSEED\r\n5\r\n91\r\n"), 1u);
    EXPECT_EQ(occurrences(second, "0\r\nLINE\r\n5\r\n88\r\n"), 1u);
}

TEST_F(RasterPlanWriterFacade, ImageAddedAfterAWriteFailsEveryLaterOne) {
    EXPECT_EQ(writer.add(plan), RasterPlanWriter::Success);
    EXPECT_EQ(writer.create3DDxf(), RasterPlanWriter::Success);
    const std::string before = drawing();
    EXPECT_EQ(writer.add(plan), RasterPlanWriter::Success);
    EXPECT_EQ(writer.create3DDxf(), RasterPlanWriter::DxfFailure);
    EXPECT_EQ(writer.create2DDxf({0, 0, 0}, {1, 0, 0}, {0, 1, 0}), RasterPlanWriter::DxfFailure);
    EXPECT_EQ(writer.create3DDxf(), RasterPlanWriter::DxfFailure);
    EXPECT_EQ(drawing(), before);
}

TEST_F(RasterPlanWriterFacade, WritesOfBothKindsMayFollowEachOther) {
    EXPECT_EQ(writer.add(plan), RasterPlanWriter::Success);
    EXPECT_EQ(writer.create2DDxf({0, 0, 0}, {1, 0, 0}, {0, 1, 0}), RasterPlanWriter::Success);
    EXPECT_EQ(writer.create3DDxf(), RasterPlanWriter::Success);
    EXPECT_EQ(writer.create2DDxf({0, 0, 0}, {1, 0, 0}, {0, 1, 0}), RasterPlanWriter::Success);
}

TEST(RasterPlanWriter, OutputThatCannotBeOpenedIsReported) {
    const TestFolder folder;
    for (const std::wstring& path : {std::wstring(), wideTextOf(utf8FromPath(folder.path())),
                                     wideTextOf(utf8FromPath(folder / "missing/plan.dxf"))}) {
        RasterPlanWriter writer(path.c_str());
        EXPECT_EQ(writer.add(plan), RasterPlanWriter::Success);
        EXPECT_EQ(writer.create3DDxf(), RasterPlanWriter::CannotOpenOutput);
        EXPECT_EQ(writer.create2DDxf({0, 0, 0}, {1, 0, 0}, {0, 1, 0}), RasterPlanWriter::CannotOpenOutput);
    }
    RasterPlanWriter writer(nullptr);
    EXPECT_EQ(writer.create3DDxf(), RasterPlanWriter::CannotOpenOutput);
}

TEST_F(RasterPlanWriterFacade, CopiesShareOneDrawing) {
    {
        RasterPlanWriter copy(writer);
        EXPECT_EQ(copy.add(plan), RasterPlanWriter::Success);
        RasterPlanWriter assigned(L"elsewhere.dxf");
        assigned = copy;
        EXPECT_EQ(assigned.add(plan), RasterPlanWriter::Success);
        const RasterPlanWriter& same = assigned;
        assigned = same;
    }
    EXPECT_EQ(writer.create3DDxf(), RasterPlanWriter::Success);
    EXPECT_EQ(occurrences(drawing(), "\r\n0\r\nLINE\r\n"), 12u);
}

TEST_F(RasterPlanWriterFacade, CopyOutlivesItsSource) {
    RasterPlanWriter last(L"elsewhere.dxf");
    {
        RasterPlanWriter source(std::move(writer));
        last = source;
        EXPECT_EQ(source.add(plan), RasterPlanWriter::Success);
    }
    EXPECT_EQ(last.create3DDxf(), RasterPlanWriter::Success);
    EXPECT_TRUE(isWritten());
}

TEST_F(RasterPlanWriterFacade, MovedFromAnswersThatItHasNoDrawing) {
    RasterPlanWriter moved(std::move(writer));
    // NOLINTBEGIN(bugprone-use-after-move): it answers
    TripleDouble origin(1, 2, 3), xAxis, yAxis;
    EXPECT_EQ(writer.add(plan), RasterPlanWriter::UnexpectedFailure);
    EXPECT_EQ(writer.add(ImageParam()), RasterPlanWriter::UnexpectedFailure);
    EXPECT_EQ(writer.create3DDxf(), RasterPlanWriter::UnexpectedFailure);
    EXPECT_EQ(writer.create2DDxf({0, 0, 0}, {0, 0, 0}, {0, 0, 0}), RasterPlanWriter::UnexpectedFailure);
    EXPECT_EQ(writer.calcMiddledImagePlaneReferenceCoordSystem3D(origin, xAxis, yAxis),
              RasterPlanWriter::UnexpectedFailure);
    EXPECT_EQ(origin.x, 1.0);
    const RasterPlanWriter copyOfNothing(writer);
    // NOLINTEND(bugprone-use-after-move)
    EXPECT_FALSE(isWritten());
    writer = std::move(moved);
    EXPECT_EQ(writer.add(plan), RasterPlanWriter::Success);
    EXPECT_EQ(writer.create3DDxf(), RasterPlanWriter::Success);
}

TEST_F(RasterPlanWriterFacade, CharacterBeyondUnicodeIsPassedOn) {
    if (sizeof(wchar_t) == 2)
        GTEST_SKIP() << "every wide character converts here";
    const std::wstring path(1, static_cast<wchar_t>(0x110000));
    EXPECT_EQ(writer.add(imageAt({0, 1, 0}, {0, 0, 0}, {1, 0, 0}, 100, path.c_str())),
              RasterPlanWriter::Success);
    EXPECT_THROW(writer.create3DDxf(), std::range_error);
}
