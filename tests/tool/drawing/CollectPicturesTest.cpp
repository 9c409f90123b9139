#include "drawing/CollectPictures.h"

#include "base/Failure.h"
#include "base/PathText.h"
#include "tool/TestFiles.h"

#include <gtest/gtest.h>

#include <sstream>

namespace fs = std::filesystem;

namespace rasterplan_tool {
namespace {

class CollectPictures : public testing::Test {
protected:
    CollectPictures() {
        writeFile(m_folder / "a/süd.png", "south");
        writeFile(m_folder / "b/süd.png", "other");
        writeFile(m_folder / "c/süd.png", "south");
        writeFile(m_folder / "a/nord.png", std::string(40000, 'n'));
        fs::create_directory(m_folder / "out");
    }

    std::vector<PictureCopy> toCollect(const std::vector<std::string>& images,
                                       const std::string& drawing = "out/plan.dxf") const {
        std::vector<std::string> texts;
        for (const std::string& image : images)
            texts.push_back(imageText(image));
        return picturesToCollect(parseManifest(siteText(texts), m_folder / "SITE.json"), m_folder / drawing);
    }

    std::string failureOf(const std::vector<std::string>& images,
                          const std::string& drawing = "out/plan.dxf") const {
        try {
            toCollect(images, drawing);
        } catch (const BadInput& failure) {
            return failure.what();
        }
        return "no failure";
    }

    void collect(const std::vector<PictureCopy>& copies) const {
        std::ostringstream terminal;
        Progress progress(terminal, "copying", true);
        collectPictures(copies, m_folder / "out/x.tmp", progress);
        EXPECT_EQ(terminal.str(), "");
    }

    TestFolder m_folder;
};

} // namespace

TEST_F(CollectPictures, EachIsCopiedOnceUnderItsName) {
    const auto copies = toCollect({"a/süd.png", "a/nord.png", "a/../a/süd.png", "c/süd.png"});
    ASSERT_EQ(copies.size(), 2U);
    EXPECT_EQ(copies[0].from, m_folder / "a/süd.png");
    EXPECT_EQ(copies[0].to, m_folder / "out/süd.png");
    collect(copies);
    EXPECT_EQ(readBytes(m_folder / "out/süd.png"), "south");
    EXPECT_EQ(readBytes(m_folder / "out/nord.png"), std::string(40000, 'n'));
    EXPECT_FALSE(fs::exists(m_folder / "out/x.tmp"));
}

TEST_F(CollectPictures, NothingIsCopiedThatIsThereAlready) {
    collect(toCollect({"a/süd.png"}));
    EXPECT_TRUE(toCollect({"a/süd.png", "out/süd.png"}).empty());
    EXPECT_TRUE(toCollect({"a/süd.png"}, "a/plan.dxf").empty());
    EXPECT_TRUE(toCollect({"a/none.png"}).empty());
}

TEST_F(CollectPictures, FilesAreNeverReplaced) {
    for (const std::string_view other : {"longer than a picture", "South", ""}) {
        writeFile(m_folder / "out/süd.png", other);
        EXPECT_EQ(failureOf({"a/nord.png", "a/süd.png"}),
                  shownText(m_folder / "SITE.json") +
                      ":3: image 2 (\"a/süd.png\"): " + quoted(m_folder / "out/süd.png") +
                      " is another file, which --collect does not replace; move it away, or name an output "
                      "file in another folder");
    }
    std::string nearly(40000, 'n');
    nearly.back() = 'N';
    writeFile(m_folder / "out/nord.png", nearly);
    EXPECT_NE(failureOf({"a/nord.png"}).find("is another file"), std::string::npos);
    fs::remove(m_folder / "out/nord.png");
    fs::create_directory(m_folder / "out/nord.png");
    EXPECT_NE(failureOf({"a/nord.png"}).find("is another file"), std::string::npos);
}

TEST_F(CollectPictures, DifferentPicturesOfOneNameAreAnError) {
    const std::string words =
        "image 1 has another picture with this file name, and --collect puts both into one "
        "folder; rename one of the files";
    EXPECT_NE(failureOf({"a/süd.png", "b/süd.png"}).find("image 2 (\"b/süd.png\"): " + words),
              std::string::npos);
    writeFile(m_folder / "b/NORD.png", "other");
    EXPECT_NE(failureOf({"a/nord.png", "b/NORD.png"}).find(words), std::string::npos);
    EXPECT_TRUE(fs::is_empty(m_folder / "out"));
}

TEST_F(CollectPictures, DrawingOfThatNameIsAnError) {
    EXPECT_NE(failureOf({"a/nord.png"}, "out/Nord.PNG").find("the drawing has the name of the picture"),
              std::string::npos);
}

TEST_F(CollectPictures, CopyThatFailsLeavesTheOthersWhole) {
    auto copies = toCollect({"a/süd.png", "a/nord.png"});
    fs::remove(m_folder / "a/nord.png");
    EXPECT_THROW(collect(copies), ExportFailed);
    EXPECT_EQ((std::vector<std::string>{"süd.png"}), [&] {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(m_folder / "out"))
            names.push_back(utf8FromPath(entry.path().filename()));
        return names;
    }());
    EXPECT_EQ(readBytes(m_folder / "out/süd.png"), "south");
}

} // namespace rasterplan_tool
