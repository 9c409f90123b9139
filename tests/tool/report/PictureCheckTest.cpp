#include "report/PictureCheck.h"

#include "base/PathText.h"
#include "site/Site.h"
#include "tool/TestFiles.h"

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
        const Manifest manifest = parseManifest(site, m_folder / "SITE.json");
        std::ostringstream out;
        std::ostringstream err;
        Console console{out, err};
        checkManifest(manifest, console);
        checkPictures(manifest, makeImages(manifest, std::vector<std::wstring>(manifest.images.size())),
                      console);
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
    EXPECT_EQ(
        warnings(siteText({imageText("nö.png"), imageText("c.png")})),
        place(2, 1, "nö.png") + quoted(m_folder / "nö.png") +
            ": there is no such file, so its pixel count was not checked; correct the path or the file\n" +
            place(3, 2, "c.png") + quoted(m_folder / "c.png") +
            ": the file is neither PNG nor JPEG, so its pixel count was not checked; correct the path or the "
            "file\n");
}

TEST_F(PictureCheck, SameFileNameIsNamedWhateverFolderAndCase) {
    fs::create_directory(m_folder / "x");
    fs::copy_file(testData("grey-17x9.png"), m_folder / "x/A.PNG");
    EXPECT_EQ(warnings(siteText({imageText("a.png"), imageText("b.jpg"), imageText("x/A.PNG")})),
              place(4, 3, "x/A.PNG") +
                  "image 1 has the same file name, and the drawing lists its pictures by file "
                  "name; rename one of the files\n");
}

TEST_F(PictureCheck, DifferentUnitsAreNamed) {
    std::string site = siteText({imageText("a.png"), imageText("b.jpg")});
    site.insert(site.find("\"path\": \"b.jpg\""), "\"unit\": \"Feet\", ");
    EXPECT_EQ(
        warnings(site),
        "rasterplan: warning: " + utf8FromPath(m_folder / "SITE.json") +
            ": the images have different units: Feet (image 2), Meters (image 1); a drawing has one unit, "
            "that of the last image (Feet), and no coordinate is converted; give all images the same unit\n");
}

} // namespace rasterplan_tool
