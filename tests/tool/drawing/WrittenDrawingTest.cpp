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

TEST(WrittenDrawing, MissingFileIsAFailure) {
    const TestFolder folder;
    EXPECT_THROW(readBack(folder / "no.dxf"), ExportFailed);
}

} // namespace rasterplan_tool
