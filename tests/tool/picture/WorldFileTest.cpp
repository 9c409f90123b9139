#include "picture/WorldFile.h"

#include "tool/TestFiles.h"

#include <gtest/gtest.h>

namespace fs = std::filesystem;

namespace rasterplan_tool {
namespace {

std::string errorOfWorldFile(const std::string& text) {
    try {
        parseWorldFile(text);
    } catch (const WorldFileError& error) {
        return error.what();
    }
    return "no error";
}

std::string errorOfFile(const fs::path& file) {
    try {
        readWorldFile(file);
    } catch (const WorldFileError& error) {
        return error.what();
    }
    return "no error";
}

} // namespace

TEST(WorldFile, NamesTheCenterOfTheLeftTopPixel) {
    const MapTransform transform = parseWorldFile("0.5\n0.25\n-0.125\n-1\n1000\n2000\n");
    EXPECT_EQ(transform.xPerColumn, 0.5);
    EXPECT_EQ(transform.yPerColumn, 0.25);
    EXPECT_EQ(transform.xPerRow, -0.125);
    EXPECT_EQ(transform.yPerRow, -1.0);
    EXPECT_EQ(transform.x, 1000 - 0.25 + 0.0625);
    EXPECT_EQ(transform.y, 2000 - 0.125 + 0.5);
}

TEST(WorldFile, IsReadAsManyProgramsWriteIt) {
    for (const char* text :
         {"0.5\n0\n0\n-0.5\n4468215.25\n5333642.5", "0.5\r\n0\r\n0\r\n-0.5\r\n4468215.25\r\n5333642.5\r\n",
          "\xEF\xBB\xBF 0.50000 \n+0.0\n\t0.0\n-5e-1\n4468215.25\n5333642.5\n\n \n"}) {
        const MapTransform transform = parseWorldFile(text);
        EXPECT_EQ(transform.xPerColumn, 0.5) << text;
        EXPECT_EQ(transform.yPerRow, -0.5) << text;
        EXPECT_EQ(transform.x, 4468215.0) << text;
        EXPECT_EQ(transform.y, 5333642.75) << text;
    }
}

TEST(WorldFile, WrongLinesAreNamed) {
    EXPECT_EQ(
        errorOfWorldFile("0,5\n0\n0\n-0.5\n1\n2"),
        "line 1 is \"0,5\", which is no number that fits; a world file is six lines with one number each, "
        "with a point");
    EXPECT_EQ(errorOfWorldFile("0.5\n0\n0\n-0.5\n1").find("line 6 is \"\", which is no number"), 0U);
    EXPECT_EQ(errorOfWorldFile("").find("line 1 is \"\""), 0U);
    EXPECT_EQ(errorOfWorldFile("0.5\n0\n0 0\n").find("line 3 is \"0 0\""), 0U);
    EXPECT_EQ(errorOfWorldFile("0.5\nnan\n").find("line 2 is \"nan\""), 0U);
    EXPECT_EQ(errorOfWorldFile("0.5\n0\n0\n1\n2e18\n").find("line 5 is \"2e18\""), 0U);
    EXPECT_EQ(errorOfWorldFile("\x1B[2J\n").find("line 1 is \"\\x1b[2J\""), 0U);
    EXPECT_EQ(errorOfWorldFile("1\n0\n0\n-1\n0\n0\n\n7\n").find("there is more than six lines"), 0U);
}

TEST(WorldFile, FilesThatAreNoneAreErrors) {
    const TestFolder folder;
    EXPECT_EQ(errorOfFile(folder / "no.wld"), "there is no such file; correct the path");
    EXPECT_EQ(errorOfFile(folder.path()), "this is not a file; correct the path");
    EXPECT_EQ(errorOfFile(writeFile(folder / "a.wld", std::string(5000, ' '))),
              "it is too long for a world file; name a file of six lines");
    EXPECT_EQ(readWorldFile(writeFile(folder / "a.wld", "1\n0\n0\n-1\n0\n0\n")).x, -0.5);
}

TEST(WorldFile, IsFoundByThePicturesName) {
    const TestFolder folder;
    const struct {
        const char* picture;
        std::vector<const char*> worldFiles; // each comes before those to its left
    } cases[] = {
        {"a.png", {"a.wld", "a.pngw", "a.pgw"}},   {"b.JPG", {"b.WLD", "b.JPGW", "b.jgw"}},
        {"c.jpeg", {"c.wld", "c.jpegw", "c.jgw"}}, {"d.tif", {"d.wld", "d.tifw", "d.TFW", "d.tfw"}},
        {"e.tiff", {"e.wld", "e.tiffw", "e.tfw"}}, {"f.bmp", {"f.wld", "f.bmpw", "f.bpw"}},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(findWorldFile(folder / row.picture), std::nullopt) << row.picture;
        for (const char* worldFile : row.worldFiles) {
            writeFile(folder / worldFile, "");
            const auto found = findWorldFile(folder / row.picture);
            ASSERT_TRUE(found.has_value()) << worldFile;
            EXPECT_TRUE(fs::equivalent(*found, folder / worldFile)) << worldFile;
        }
    }
}

TEST(WorldFile, NoneBelongsToPicturesOfOtherNames) {
    const TestFolder folder;
    for (const char* name : {"a.wld", "a.gfw", ".wld", "a", "a.w"})
        writeFile(folder / name, "");
    fs::create_directory(folder / "b.wld");
    for (const char* picture : {"a.gif", "a", "a.", ".png", "a.ü", "b.png"})
        EXPECT_EQ(findWorldFile(folder / picture), std::nullopt) << picture;
}

} // namespace rasterplan_tool
