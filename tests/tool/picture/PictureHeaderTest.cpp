#include "picture/PictureHeader.h"

#include "base/PathText.h"
#include "picture/PictureEnd.h"
#include "tool/TestFiles.h"
#include "tool/TestPictures.h"

#include <gtest/gtest.h>

#include <limits>

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

bool hasJpegEnd(const fs::path& path) {
    BinaryFile file(path);
    return rasterplan_tool::hasJpegEnd(file);
}

// Decoders that read on behind the header refuse a file that is cut short, which is as good.
bool isCutShort(const fs::path& file) {
    try {
        return readPicture(file).isCutShort;
    } catch (const PictureError&) {
        return true;
    }
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
    EXPECT_EQ(errorOf(writeFile(folder / "empty.png", "")), "the file is neither PNG, JPEG, TIFF nor BMP");
    EXPECT_EQ(errorOf(writeFile(folder / "text.png", "not a picture")),
              "the file is neither PNG, JPEG, TIFF nor BMP");
    EXPECT_EQ(errorOf(writeFile(folder / "gif.png", "GIF89a\x01")),
              "the file is neither PNG, JPEG, TIFF nor BMP");
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

TEST(PictureHeader, TiffOfEveryFormTellsItsSize) {
    const TestFolder folder;
    for (const TiffForm form : {TiffForm{false, false}, {true, false}, {false, true}, {true, true}}) {
        const Picture picture = readPicture(writeFile(folder / "a.tif", tiffBytes(form, 70000, 9)));
        EXPECT_EQ(picture.format, PictureFormat::Tiff);
        EXPECT_EQ(picture.size.width, 70000U);
        EXPECT_EQ(picture.size.height, 9U);
        EXPECT_FALSE(picture.isCutShort);
        EXPECT_FALSE(picture.geo.has_value());
    }
}

TEST(PictureHeader, BmpTellsItsSize) {
    const TestFolder folder;
    for (const std::string& bytes : {bmpBytes(17, 9), bmpBytes(17, -9), bmpBytes(17, 9, true)}) {
        const Picture picture = readPicture(writeFile(folder / "a.bmp", bytes));
        EXPECT_EQ(picture.format, PictureFormat::Bmp);
        EXPECT_EQ(picture.size.width, 17U);
        EXPECT_EQ(picture.size.height, 9U);
        EXPECT_FALSE(picture.isCutShort);
    }
}

TEST(PictureHeader, BmpWithoutASizeIsAnError) {
    const TestFolder folder;
    for (const std::string& bytes : {bmpBytes(0, 9), bmpBytes(17, 0), bmpBytes(-17, 9)}) {
        EXPECT_EQ(errorOf(writeFile(folder / "a.bmp", bytes)),
                  "the BMP header is damaged (it holds no size)");
    }
    EXPECT_EQ(errorOf(writeFile(folder / "a.bmp", bmpBytes(17, 9).substr(0, 25))),
              "the BMP header is damaged (the file ends in it)");
}

TEST(PictureHeader, TiffThatIsDamagedIsAnError) {
    const TestFolder folder;
    const auto errorOfTiff = [&](const std::vector<TiffTag>& tags) {
        return errorOf(writeFile(folder / "a.tif", tiffBytes({}, 17, 9, tags)));
    };
    constexpr const char* noSize = "the TIFF header is damaged (it holds no size)";
    EXPECT_EQ(errorOfTiff({{256, {0}, {}}}), noSize);
    EXPECT_EQ(errorOfTiff({{257, {0}, {}}}), noSize);
    EXPECT_EQ(errorOfTiff({{256, {1, 2}, {}}}), noSize);
    EXPECT_EQ(errorOfTiff({{257, {}, {9.0}}}), noSize);
    std::string asText = tiffBytes({}, 17, 9);
    asText.replace(asText.find(std::string("\0\x01\x04\0", 4)), 4, std::string("\0\x01\x02\0", 4));
    EXPECT_EQ(errorOf(writeFile(folder / "a.tif", asText)), noSize);
    std::string tooMany = tiffBytes({false, true}, 17, 9);
    tooMany.replace(tooMany.find(std::string("\x04\0\0\0\0\0\0\0", 8)), 4, "\xFF\xFF\xFF\xFF");
    EXPECT_EQ(errorOf(writeFile(folder / "a.tif", tooMany)),
              "the TIFF header is damaged (its directory is too long)");
}

TEST(PictureHeader, EveryCutTiffIsAnErrorAndNoCrash) {
    const TestFolder folder;
    for (const bool isBigTiff : {false, true}) {
        const std::string tiff = tiffBytes({false, isBigTiff}, 17, 9, geoTags(1, 2, 0.5));
        const std::size_t nextDirectory = isBigTiff ? 8 : 4;
        for (std::size_t length = 8; length < tiff.size() - nextDirectory; ++length) {
            EXPECT_EQ(errorOf(writeFile(folder / "a.tif", tiff.substr(0, length))).find("the TIFF header is"),
                      0U)
                << length;
        }
    }
}

TEST(PictureHeader, FilesThatEndBeforeThePictureAreCutShort) {
    const TestFolder folder;
    for (const char* name : {"grey-17x9.png", "grey-17x9.jpg"}) {
        const std::string whole = readBytes(testData(name));
        EXPECT_FALSE(readPicture(testData(name)).isCutShort) << name;
        for (const std::size_t missing : {1U, 2U, 5U})
            EXPECT_TRUE(isCutShort(writeFile(folder / name, whole.substr(0, whole.size() - missing))))
                << name << missing;
        EXPECT_FALSE(readPicture(writeFile(folder / name, whole + "what a camera adds")).isCutShort) << name;
    }
    std::string bmp = bmpBytes(17, 9);
    bmp.pop_back();
    EXPECT_TRUE(isCutShort(writeFile(folder / "a.bmp", bmp)));
}

TEST(PictureHeader, PreviewInAJpegIsNotItsEnd) {
    const TestFolder folder;
    std::string jpeg = readBytes(testData("grey-17x9.jpg"));
    jpeg.insert(2, std::string("\xFF\xE1\x00\x06\x20\x20\xFF\xD9", 8));
    EXPECT_FALSE(readPicture(writeFile(folder / "a.jpg", jpeg)).isCutShort);
    jpeg.erase(jpeg.size() - 2);
    EXPECT_TRUE(isCutShort(writeFile(folder / "a.jpg", jpeg)));
}

TEST(PictureHeader, BytesBetweenSegmentsOfAJpegArePassedOver) {
    const TestFolder folder;
    std::string jpeg = readBytes(testData("grey-17x9.jpg"));
    jpeg.insert(2, "  \xFF\xFF");
    EXPECT_FALSE(hasJpegEnd(writeFile(folder / "a.jpg", jpeg.substr(0, jpeg.size() - 2))));
    EXPECT_TRUE(hasJpegEnd(writeFile(folder / "a.jpg", jpeg + "tail")));
    EXPECT_FALSE(hasJpegEnd(writeFile(folder / "a.jpg", "\xFF\xD8\xFF\xE0")));
}

TEST(PictureHeader, EndOfAJpegIsFoundFarFromBothEnds) {
    const TestFolder folder;
    std::string jpeg = readBytes(testData("grey-17x9.jpg"));
    const std::size_t end = jpeg.size() - 2;
    for (std::size_t filled = 3996; filled <= 4096; ++filled) { // it is read in pieces of 4096
        std::string longer = jpeg;
        longer.insert(end, filled, ' ');
        EXPECT_FALSE(readPicture(writeFile(folder / "a.jpg", longer + "tail")).isCutShort) << filled;
        EXPECT_TRUE(isCutShort(writeFile(folder / "a.jpg", longer.substr(0, end + filled + 1))));
    }
}

TEST(PictureHeader, TiffWhoseStripsOrTilesLieBeyondItsEndIsCutShort) {
    const TestFolder folder;
    const auto isTiffCutShort = [&](const std::vector<TiffTag>& tags) {
        return readPicture(writeFile(folder / "a.tif", tiffBytes({}, 17, 9, tags))).isCutShort;
    };
    EXPECT_TRUE(isTiffCutShort({{279, {1000}, {}}}));
    EXPECT_TRUE(isTiffCutShort({{273, {1000}, {}}}));
    const std::uint64_t behindHeader = tiffBytes({}, 17, 9).size() - 8; // where the strip begins
    EXPECT_FALSE(isTiffCutShort({{279, {behindHeader}, {}}}));
    EXPECT_TRUE(isTiffCutShort({{279, {behindHeader + 1}, {}}}));
    EXPECT_FALSE(isTiffCutShort({{273, {8, 9, 10}, {}}, {279, {1, 2, 2}, {}}}));
    EXPECT_TRUE(isTiffCutShort({{273, {8, 9, 10}, {}}, {279, {1, 2, 1000}, {}}}));
    std::string endless = tiffBytes({}, 17, 9);
    endless.replace(endless.find(std::string("\x11\x01\x04\0\x01", 5)) + 4, 4, std::string("\0\0\0\x01", 4));
    EXPECT_TRUE(isCutShort(writeFile(folder / "a.tif", endless)));
    EXPECT_FALSE(isTiffCutShort({{324, {8, 0}, {}}, {325, {4, 0}, {}}}));
    EXPECT_TRUE(isTiffCutShort({{324, {8, 0}, {}}, {325, {4, 1000}, {}}}));
}

TEST(PictureHeader, GeoTiffTellsItsPlace) {
    const TestFolder folder;
    const auto geoOf = [&](const TiffForm& form, const std::vector<TiffTag>& tags) {
        return readPicture(writeFile(folder / "a.tif", tiffBytes(form, 17, 9, tags))).geo;
    };
    for (const TiffForm form : {TiffForm{false, false}, {true, false}, {false, true}, {true, true}}) {
        const auto geo = geoOf(form, {{33550, {}, {0.5, 0.25, 0}}, {33922, {}, {2, 4, 0, 1000, 2000, 7}}});
        ASSERT_TRUE(geo.has_value());
        EXPECT_EQ(geo->problem, "");
        EXPECT_EQ(geo->unit, std::nullopt);
        EXPECT_EQ(geo->transform.x, 999.0);
        EXPECT_EQ(geo->transform.y, 2001.0);
        EXPECT_EQ(geo->transform.xPerColumn, 0.5);
        EXPECT_EQ(geo->transform.yPerColumn, 0.0);
        EXPECT_EQ(geo->transform.xPerRow, 0.0);
        EXPECT_EQ(geo->transform.yPerRow, -0.25);
    }
    const auto byMatrix = geoOf({}, {{34264, {}, {1, 2, 0, 3, 4, 5, 0, 6, 0, 0, 0, 0, 0, 0, 0, 1}}});
    ASSERT_TRUE(byMatrix.has_value());
    EXPECT_EQ(byMatrix->problem, "");
    EXPECT_EQ(byMatrix->transform.xPerColumn, 1.0);
    EXPECT_EQ(byMatrix->transform.xPerRow, 2.0);
    EXPECT_EQ(byMatrix->transform.x, 3.0);
    EXPECT_EQ(byMatrix->transform.yPerColumn, 4.0);
    EXPECT_EQ(byMatrix->transform.yPerRow, 5.0);
    EXPECT_EQ(byMatrix->transform.y, 6.0);
}

TEST(PictureHeader, KeysOfAGeoTiffCount) {
    const TestFolder folder;
    const auto geoOf = [&](const std::vector<std::pair<std::uint64_t, std::uint64_t>>& keys) {
        std::vector<TiffTag> tags = geoTags(1000, 2000, 0.5);
        tags.push_back(geoKeys(keys));
        return readPicture(writeFile(folder / "a.tif", tiffBytes({}, 17, 9, tags))).geo.value();
    };
    EXPECT_EQ(geoOf({{1024, 1}, {1025, 1}}).transform.x, 1000.0);
    const GeoReference byPoint = geoOf({{1024, 1}, {1025, 2}});
    EXPECT_EQ(byPoint.transform.x, 999.75);
    EXPECT_EQ(byPoint.transform.y, 2000.25);
    std::vector<TiffTag> tags = geoTags(1000, 2000, 0.5);
    tags.push_back({34735, {1, 1, 0, 1, 1025, 34736, 1, 2}, {}}); // the 2 is a place in another tag
    EXPECT_EQ(readPicture(writeFile(folder / "a.tif", tiffBytes({}, 17, 9, tags))).geo.value().transform.x,
              1000.0);
    EXPECT_EQ(geoOf({{3076, 9001}}).unit, Meters);
    EXPECT_EQ(geoOf({{3076, 9002}}).unit, Feet);
    EXPECT_EQ(geoOf({{3076, 9003}}).unit, USSurveyFeet);
    EXPECT_EQ(geoOf({{3076, 32767}}).unit, std::nullopt);
    EXPECT_EQ(geoOf({{1024, 2}}).problem,
              "its GeoTIFF tags place it by longitude and latitude; bring it into a map with lengths");
}

TEST(PictureHeader, IncompleteGeoTagsAreAProblemOfThePlaceOnly) {
    const TestFolder folder;
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const std::vector<TiffTag>& tags : {std::vector<TiffTag>{{33550, {}, {0.5, 0.5, 0}}},
                                             {{33922, {}, {0, 0, 0, 1, 2, 0}}},
                                             {{33550, {}, {0.5}}, {33922, {}, {0, 0, 0, 1, 2, 0}}},
                                             {{33550, {}, {0.5, 0.5, 0}}, {33922, {}, {0, 0, 0, 1, 2}}},
                                             {{33550, {}, {0.5, nan, 0}}, {33922, {}, {0, 0, 0, 1, 2, 0}}},
                                             {{33550, {1, 1, 0}, {}}, {33922, {}, {0, 0, 0, 1, 2, 0}}},
                                             {{34264, {}, {1, 2, 3}}}}) {
        const Picture picture = readPicture(writeFile(folder / "a.tif", tiffBytes({}, 17, 9, tags)));
        ASSERT_TRUE(picture.geo.has_value());
        EXPECT_EQ(picture.geo->problem.find("its GeoTIFF tags hold neither"), 0U) << picture.geo->problem;
    }
}

#ifndef _WIN32
TEST(PictureHeader, DeviceIsNoFile) {
    EXPECT_EQ(errorOf("/dev/null"), "this is not a file");
}
#endif

} // namespace rasterplan_tool
