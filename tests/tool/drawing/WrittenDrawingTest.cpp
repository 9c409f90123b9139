#include "drawing/WrittenDrawing.h"

#include "base/Failure.h"
#include "tool/TestFiles.h"

#include <gtest/gtest.h>

namespace rasterplan_tool {
namespace {

WrittenDrawing readBackText(const std::string& text) {
    const TestFolder folder;
    return readBack(writeFile(folder / "out.dxf", text));
}

} // namespace

TEST(WrittenDrawing, ImagesAndDefinitionsAreCountedWhereTheyBeginARecord) {
    const WrittenDrawing drawing = readBackText(
        "0\r\nCLASS\r\n1\r\nIMAGE\r\n  0\r\nIMAGE\r\n 0 \r\nIMAGEDEF\r\n0\r\nIMAGEDEF_REACTOR\r\n0\nIMAGE\n"
        "0\r\nEOF\r\n");
    EXPECT_EQ(drawing.images, 2U);
    EXPECT_EQ(drawing.imageDefinitions, 1U);
    EXPECT_TRUE(drawing.isComplete);
}

TEST(WrittenDrawing, ValueOfZeroBeginsNoRecord) {
    const WrittenDrawing drawing = readBackText("70\n0\n1\nIMAGE\n0\nEOF\n");
    EXPECT_EQ(drawing.images, 0U);
    EXPECT_TRUE(drawing.isComplete);
}

TEST(WrittenDrawing, LinesMayLieAcrossBlocksAndFillThem) {
    for (const std::size_t length : {std::size_t{65000}, std::size_t{65532}, std::size_t{65533},
                                     std::size_t{65534}, std::size_t{65535}, std::size_t{200000}}) {
        const std::string text = "1\n" + std::string(length, 'x') + "\n0\nIMAGE\n0\nEOF\n";
        const WrittenDrawing drawing = readBackText(text);
        EXPECT_EQ(drawing.size, text.size());
        EXPECT_EQ(drawing.images, 1U) << length;
        EXPECT_TRUE(drawing.isComplete) << length;
    }
}

TEST(WrittenDrawing, OnlyTheLastGroupEndsADrawing) {
    for (const char* text : {"0\nEOF", "0\r\nEOF\r\n", "0\nEOF\n\n\r\n", "  0\r\n EOF \r\n"})
        EXPECT_TRUE(readBackText(text).isComplete) << text;
    for (const char* text : {"", "0", "0\n", "0\nEO", "10\nEOF\n", "0\nxEOF\n", "EOF\n", "\n\n",
                             "0\nEOF\n0\nLINE\n", "0\nEOF\n8\nEOF\n"})
        EXPECT_FALSE(readBackText(text).isComplete) << text;
}

TEST(WrittenDrawing, ViewModeThatIsARealNumberIsFoundInItsPlace) {
    const std::string header = "9\r\n$X\r\n 71\r\n0.0\r\n0\r\nVPORT\r\n 40\r\n0.0\r\n 71\r\n";
    EXPECT_EQ(readBackText(header + "0.0\r\n0\r\nEOF\r\n").viewModeAsReal, header.size());
    const std::string afterBlocks = "1\n" + std::string(200000, 'x') + "\n" + header;
    EXPECT_EQ(readBackText(afterBlocks + "0.0\n0\nEOF\n").viewModeAsReal, afterBlocks.size());
}

TEST(WrittenDrawing, ViewModeThatIsAnIntegerIsLeftAlone) {
    for (const char* text : {"0\nVPORT\n71\n0\n0\nEOF\n", "0\nVPORT\n71\n  0\n", "0\nVPORT\n71\n0.01\n",
                             "0\nVPORT\n71\n 0.0\n", "0\nVIEW\n71\n0.0\n", "0\nVPORT\n0\nVIEW\n71\n0.0\n"})
        EXPECT_FALSE(readBackText(text).viewModeAsReal.has_value()) << text;
}

TEST(WrittenDrawing, MissingFileIsAFailure) {
    const TestFolder folder;
    EXPECT_THROW(readBack(folder / "no.dxf"), ExportFailed);
}

} // namespace rasterplan_tool
