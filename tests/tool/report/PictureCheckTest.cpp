#include "report/PictureCheck.h"

#include "base/PathText.h"
#include "drawing/PathForm.h"
#include "site/Site.h"
#include "tool/TestFiles.h"
#include "tool/TestPictures.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

namespace fs = std::filesystem;

namespace rasterplan_tool {
namespace {

class PictureCheck : public testing::Test {
protected:
    // The warnings on a site with these images, in a folder with the test pictures.
    std::string warnings(const std::string& site) {
        fs::copy_file(testData("grey-17x9.png"), m_folder / "a.png", fs::copy_options::skip_existing);
        fs::copy_file(testData("grey-17x9.jpg"), m_folder / "b.jpg", fs::copy_options::skip_existing);
        std::ostringstream out;
        std::ostringstream err;
        Console console{out, err};
        const Site read = readSite(writeFile(m_folder / "SITE.json", site), PicturesToRead::All, console);
        Notices notices;
        checkManifest(read.manifest, notices);
        checkPictures(read, makeImages(read, drawingPaths(read, PathForm::AsGiven, {})), notices);
        notices.tell(console);
        EXPECT_EQ(out.str(), "");
        return err.str();
    }

    std::string place(int line, int image, const std::string& path) const {
        return "rasterplan: warning: " + utf8FromPath(m_folder / "SITE.json") + ':' + std::to_string(line) +
               ": image " + std::to_string(image) + " (\"" + path + "\"): ";
    }

    std::string siteWithPixelsPerUnit(const std::string& pixelsPerUnit) const {
        std::string site = siteText({imageText("a.png")});
        return site.replace(site.find("100}"), 3, pixelsPerUnit);
    }

    TestFolder m_folder;
};

} // namespace

TEST_F(PictureCheck, RightPicturesGiveNoWarning) {
    EXPECT_EQ(warnings(siteText({imageText("a.png"), imageText("b.jpg")})), "");
}

TEST_F(PictureCheck, HalfAPixelIsTolerated) {
    EXPECT_EQ(warnings(siteWithPixelsPerUnit("102.9")), ""); // 17.493 x 9.261
    EXPECT_EQ(warnings(siteWithPixelsPerUnit("97.1")), "");
}

TEST_F(PictureCheck, OtherPixelCountIsNamedWithTheOneThatFits) {
    EXPECT_EQ(warnings(siteWithPixelsPerUnit("103"))
                  .find(place(2, 1, "a.png") + "the picture has 17 x 9 pixels, but pixelsPerUnit times "
                                               "width and height gives 17.51 x 9.27"),
              0U);
    EXPECT_NE(warnings(siteWithPixelsPerUnit("200"))
                  .find("; pixelsPerUnit 100 would fit, if the corners are right\n"),
              std::string::npos);
}

TEST_F(PictureCheck, PictureOfOtherProportionsHasNoFittingPixelCount) {
    std::string site = siteText({imageText("a.png")});
    site.replace(site.find("0.17"), 4, "0.09");
    EXPECT_NE(warnings(site).find("; correct pixelsPerUnit or the corners\n"), std::string::npos);
}

TEST_F(PictureCheck, MissingAndUnreadablePicturesAreNamed) {
    writeFile(m_folder / "c.png", "no picture");
    EXPECT_EQ(warnings(siteText({imageText("nö.png"), imageText("c.png")})),
              place(2, 1, "nö.png") + quoted(m_folder / "nö.png") +
                  ": there is no such file, so neither its pixel count nor whether it is whole was checked; "
                  "correct "
                  "the path\n" +
                  place(3, 2, "c.png") + quoted(m_folder / "c.png") +
                  ": the file is neither PNG, JPEG, TIFF nor BMP, so neither its pixel count nor whether it "
                  "is whole "
                  "was checked\n");
}

TEST_F(PictureCheck, SameFileNameIsNamedWhateverFolderAndCase) {
    fs::create_directory(m_folder / "x");
    fs::copy_file(testData("grey-17x9.png"), m_folder / "x/A.PNG");
    EXPECT_EQ(warnings(siteText({imageText("a.png"), imageText("b.jpg"), imageText("x/A.PNG")})),
              place(4, 3, "x/A.PNG") +
                  "image 1 has the same file name, and the drawing lists its pictures by file "
                  "name; rename one of the files\n");
}

TEST_F(PictureCheck, OneFileOfSeveralImagesIsOneWarning) {
    EXPECT_EQ(
        warnings(siteText({imageText("b.jpg"), imageText("a.png"), imageText("./a.png", 1.0),
                           imageText("a.png", 2.0), imageText("x/../a.png", 3.0)})),
        "rasterplan: warning: " + utf8FromPath(m_folder / "SITE.json") + ":3: images 2-5 show one file, " +
            quoted(m_folder / "a.png") +
            "; a drawing lists its pictures by file name, so CAD programs list it once, and some show it "
            "in one of these places only; give each image a copy of the file under a name of its own\n");
}

TEST_F(PictureCheck, OneFileIsKnownBehindLinks) {
    writeFile(m_folder / "x/note", "");
    EXPECT_EQ(warnings(siteText({imageText("a.png")})), ""); // makes a.png
    fs::create_hard_link(m_folder / "a.png", m_folder / "x/a.png");
    const std::string text = warnings(siteText({imageText("a.png"), imageText("x/a.png", 1.0)}));
    EXPECT_NE(text.find(":2: images 1, 2 show one file, "), std::string::npos) << text;
}

TEST_F(PictureCheck, SharedFilesAreNamedInTheOrderOfTheSite) {
    const std::string text = warnings(
        siteText({imageText("b.jpg"), imageText("a.png"), imageText("a.png", 1.0), imageText("b.jpg", 1.0)}));
    EXPECT_LT(text.find("images 1, 4 show one file"), text.find("images 2, 3 show one file")) << text;
}

TEST_F(PictureCheck, ManyAlikeAreOneLine) {
    std::vector<std::string> images;
    for (int i = 1; i <= 40; ++i)
        images.push_back(imageText("no" + std::to_string(i) + ".png", i));
    EXPECT_EQ(
        warnings(siteText(images)),
        "rasterplan: warning: " + utf8FromPath(m_folder / "SITE.json") +
            R"(:2: image 1 ("no1.png"), image 2 ("no2.png"), image 3 ("no3.png") and 37 more (40 in all))" +
            ": there is no such file, so neither its pixel count nor whether it is whole was checked; "
            "correct the path; --verbose tells of each\n");
}

TEST_F(PictureCheck, EveryFormatIsChecked) {
    writeFile(m_folder / "c.tif", tiffBytes({}, 17, 9));
    writeFile(m_folder / "d.bmp", bmpBytes(17, 9));
    EXPECT_EQ(warnings(siteText({imageText("c.tif"), imageText("d.bmp")})), "");
    writeFile(m_folder / "c.tif", tiffBytes({}, 18, 9));
    writeFile(m_folder / "d.bmp", bmpBytes(17, 10));
    const std::string text = warnings(siteText({imageText("c.tif"), imageText("d.bmp")}));
    EXPECT_NE(text.find("the picture has 18 x 9 pixels"), std::string::npos) << text;
    EXPECT_NE(text.find("the picture has 17 x 10 pixels"), std::string::npos) << text;
}

TEST_F(PictureCheck, EndingOfAnotherFormatIsNamed) {
    fs::copy_file(testData("grey-17x9.jpg"), m_folder / "c.PNG");
    EXPECT_EQ(warnings(siteText({imageText("c.PNG")})),
              place(2, 1, "c.PNG") +
                  "the picture is a JPEG, but its name ends in .png, by which CAD programs "
                  "choose how to read it; rename the file\n");
    fs::rename(m_folder / "c.PNG", m_folder / "c.picture");
    EXPECT_EQ(warnings(siteText({imageText("c.picture")})), "");
}

TEST_F(PictureCheck, PictureThatIsCutShortIsNamed) {
    std::string png = readBytes(testData("grey-17x9.png"));
    png.pop_back();
    writeFile(m_folder / "c.png", png);
    EXPECT_EQ(warnings(siteText({imageText("c.png")})),
              place(2, 1, "c.png") + "the file ends before the picture does; copy or save it anew\n");
}

TEST_F(PictureCheck, PathTooLongForADrawingIsNamed) {
    std::string path = "a.png";
    while (path.size() + 2 <= 2049)
        path.insert(0, "./");
    EXPECT_EQ(path.size(), 2049U);
    EXPECT_EQ(warnings(siteText({imageText(path)})), "");
    path.insert(1, "/"); // ".//" is "./"
    EXPECT_NE(
        warnings(siteText({imageText(path)}))
            .find("the path in the drawing has 2050 characters, but a text of a DXF drawing at most 2049"),
        std::string::npos);
}

TEST_F(PictureCheck, ConvertedImagesAreNoted) {
    std::string site = siteText({imageText("a.png"), imageText("b.jpg"), imageText("x/b.jpg")});
    EXPECT_EQ(warnings(siteText({imageText("a.png")})).find("converted"), std::string::npos);
    for (const char* path : {"\"path\": \"b.jpg\"", "\"path\": \"x/b.jpg\""})
        site.insert(site.find(path), "\"unit\": \"Feet\", ");
    EXPECT_NE(warnings(site).find("rasterplan: note: " + utf8FromPath(m_folder / "SITE.json") +
                                  ": converted into the site's unit, Meters: Feet (image 2 and 1 more)\n"),
              std::string::npos)
        << warnings(site);
}

} // namespace rasterplan_tool
