#include "view/PictureSource.h"

#include "base/Failure.h"
#include "tool/TestFiles.h"

#include <gtest/gtest.h>

namespace fs = std::filesystem;

namespace rasterplan_tool {

TEST(PictureSource, IsFoundWhereTheDrawingSays) {
    const TestFolder folder;
    const fs::path picture = writeFile(folder / "bilder/süd.png", "x");
    writeFile(folder / "süd.png", "x");
    EXPECT_EQ(findPicture("bilder/süd.png", folder.path()), picture);
    EXPECT_EQ(findPicture("bilder\\süd.png", folder.path()), picture);
    EXPECT_EQ(findPicture("./bilder/../bilder/süd.png", folder.path()), picture);
}

TEST(PictureSource, IsFoundBesideTheDrawing) {
    const TestFolder folder;
    const fs::path picture = writeFile(folder / "süd.png", "x");
    EXPECT_EQ(findPicture("C:\\scans\\süd.png", folder.path()), picture);
    EXPECT_EQ(findPicture("/no/such/folder/süd.png", folder.path()), picture);
}

TEST(PictureSource, IsNothingWhereNoFileIs) {
    const TestFolder folder;
    writeFile(folder / "bilder/süd.png", "x");
    for (const char* path : {"", "nord.png", "bilder", "süd.png"})
        EXPECT_EQ(findPicture(path, folder.path()), std::nullopt) << path;
}

TEST(PictureSource, KindIsToldByTheContent) {
    const TestFolder folder;
    const auto kindOf = [&folder](std::string_view bytes) {
        return mediaType(writeFile(folder / "p", bytes));
    };
    EXPECT_EQ(mediaType(testData("grey-17x9.png")), "image/png");
    EXPECT_EQ(mediaType(testData("grey-17x9.jpg")), "image/jpeg");
    EXPECT_EQ(kindOf("GIF89a"), "image/gif");
    EXPECT_EQ(kindOf("BM12"), "image/bmp");
    EXPECT_EQ(kindOf("RIFF\x01\x02\x03\x04WEBPVP8 "), "image/webp");
    EXPECT_EQ(kindOf("II*"), "");
    EXPECT_EQ(kindOf("RIFF\x01\x02\x03\x04WAVE"), "");
    EXPECT_EQ(kindOf(""), "");
    EXPECT_EQ(mediaType(folder / "none"), "");
}

TEST(PictureSource, LinkIsRelativeAndPlain) {
    const TestFolder folder;
    EXPECT_EQ(linkTo(folder / "a/p.png", folder / "a"), "p.png");
    EXPECT_EQ(linkTo(folder / "a/p.png", folder / "b/c"), "../../a/p.png");
    EXPECT_EQ(linkTo(folder / "100% \"#?ü.png", folder.path()), "100%25%20%22%23%3F%C3%BC.png");
}

TEST(PictureSource, EmbeddedHoldsTheFile) {
    const TestFolder folder;
    EXPECT_EQ(embedded(writeFile(folder / "p.png", "Man"), "image/png"), "data:image/png;base64,TWFu");
    EXPECT_THROW(embedded(folder / "none.png", "image/png"), ExportFailed);
}

} // namespace rasterplan_tool
