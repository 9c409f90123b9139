#include "picture/PictureHeader.h"

#include "base/PathText.h"
#include "tool/TestFiles.h"

#include <gtest/gtest.h>

namespace fs = std::filesystem;

namespace rasterplan_tool {
namespace {

std::string errorOf(const fs::path& file) {
    try {
        readPixelSize(file);
    } catch (const PictureError& error) {
        return error.what();
    }
    return "no error";
}

} // namespace

TEST(PictureHeader, PngTellsItsSize) {
    const PixelSize size = readPixelSize(testData("grey-17x9.png"));
    EXPECT_EQ(size.width, 17U);
    EXPECT_EQ(size.height, 9U);
}

TEST(PictureHeader, JpegTellsItsSize) {
    const PixelSize size = readPixelSize(testData("grey-17x9.jpg"));
    EXPECT_EQ(size.width, 17U);
    EXPECT_EQ(size.height, 9U);
}

TEST(PictureHeader, ContentCountsNotTheName) {
    const TestFolder folder;
    fs::copy_file(testData("grey-17x9.jpg"), folder / "bild ü😀.png");
    EXPECT_EQ(readPixelSize(folder / "bild ü😀.png").width, 17U);
}

TEST(PictureHeader, PicturesOfTheExampleSiteAreReadable) {
    std::size_t pictures = 0;
    for (const fs::directory_entry& entry :
         fs::directory_iterator(pathFromUtf8(RASTERPLAN_EXAMPLES) / "site")) {
        if (entry.path().extension() == ".png") {
            const PixelSize size = readPixelSize(entry.path());
            EXPECT_GE(std::max(size.width, size.height), 900U) << shownText(entry.path());
            ++pictures;
        }
    }
    EXPECT_GE(pictures, 6U);
}

TEST(PictureHeader, WhatIsNoPictureIsAnError) {
    const TestFolder folder;
    EXPECT_EQ(errorOf(folder / "no.png"), "there is no such file");
    EXPECT_EQ(errorOf(folder.path()), "this is not a file");
    EXPECT_EQ(errorOf(writeFile(folder / "empty.png", "")), "the file is neither PNG nor JPEG");
    EXPECT_EQ(errorOf(writeFile(folder / "text.png", "not a picture")), "the file is neither PNG nor JPEG");
    EXPECT_EQ(errorOf(writeFile(folder / "gif.png", "GIF89a\x01")), "the file is neither PNG nor JPEG");
}

TEST(PictureHeader, EveryCutHeaderIsAnErrorAndNoCrash) {
    const TestFolder folder;
    const std::string png = readBytes(testData("grey-17x9.png"));
    constexpr std::size_t pngHeader = 8 + 25;
    for (std::size_t length = 0; length < pngHeader; ++length) {
        const std::string error = errorOf(writeFile(folder / "cut.png", png.substr(0, length)));
        EXPECT_EQ(error.find(length < 8 ? "the file is neither" : "the PNG header is damaged"), 0U) << error;
    }
    const std::string jpeg = readBytes(testData("grey-17x9.jpg"));
    const std::size_t sizeRecord = jpeg.find("\xFF\xC0");
    ASSERT_NE(sizeRecord, std::string::npos);
    for (std::size_t length = 0; length < sizeRecord + 2; ++length) {
        const std::string error = errorOf(writeFile(folder / "cut.jpg", jpeg.substr(0, length)));
        EXPECT_EQ(error.find(length < 3 ? "the file is neither" : "the JPEG header is damaged"), 0U) << error;
    }
}

TEST(PictureHeader, DamagedPngHeaderIsAnError) {
    const TestFolder folder;
    std::string png = readBytes(testData("grey-17x9.png"));
    png[25] = 99; // there is no such colour type
    EXPECT_EQ(errorOf(writeFile(folder / "bad.png", png)).find("the PNG header is damaged"), 0U);
}

} // namespace rasterplan_tool
