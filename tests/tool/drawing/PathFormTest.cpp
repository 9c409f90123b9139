#include "drawing/PathForm.h"

#include "base/Failure.h"
#include "base/PathText.h"
#include "site/Manifest.h"
#include "tool/TestFiles.h"

#include <gtest/gtest.h>

namespace fs = std::filesystem;

namespace rasterplan_tool {

TEST(PathForm, AbsoluteIsThePicturesOwnPath) {
    const TestFolder folder;
    const fs::path picture = folder / "süd.png";
    EXPECT_EQ(drawingPath(PathForm::Absolute, "x", picture, folder.path()), wideFromPath(picture));
}

TEST(PathForm, AsGivenIsTheTextUntouched) {
    const TestFolder folder;
    for (const char* text :
         {"a.png", "./a//b/../süd.png", "D:\\bilder\\a.png", "\\\\server\\a.png", " a ", "😀.png"}) {
        EXPECT_EQ(drawingPath(PathForm::AsGiven, text, folder / "b.png", folder.path()),
                  wideFromPath(pathFromUtf8(text)));
    }
    EXPECT_EQ(drawingPath(PathForm::AsGiven, "sü//d.png", {}, {}), L"s\u00fc//d.png");
}

TEST(PathForm, RelativeCountsFromTheDrawingsFolderWithSlashes) {
    const TestFolder folder;
    const fs::path picture = folder / "pictures/süd/a.png";
    EXPECT_EQ(drawingPath(PathForm::Relative, "x", picture, folder.path()), L"pictures/s\u00fcd/a.png");
    EXPECT_EQ(drawingPath(PathForm::Relative, "x", picture, folder / "out/deep"),
              L"../../pictures/s\u00fcd/a.png");
    EXPECT_EQ(drawingPath(PathForm::Relative, "x", picture, folder / "pictures/süd"), L"a.png");
}

TEST(PathForm, CollectedIsTheFileName) {
    EXPECT_EQ(drawingPath(PathForm::Collected, "x", fs::path("pictures") / pathFromUtf8("süd.png"), "out"),
              L"s\u00fcd.png");
}

TEST(PathForm, TextThatNoLineOfADrawingHoldsIsAnErrorInEveryForm) {
    const TestFolder folder;
    for (const std::string_view control :
         {"\n", "\r", "\x01", "\x1B", "\x7F", "\u0085", "\u009F", "\u2028", "\u2029"}) {
        const std::string name = 'a' + std::string(control) + 'b';
        for (const PathForm form : {PathForm::Absolute, PathForm::Relative}) {
            EXPECT_THROW(drawingPath(form, "a.png", folder / (name + "/a.png"), folder.path()), BadInput);
            EXPECT_THROW(drawingPath(form, "a.png", folder / name, folder.path()), BadInput);
            EXPECT_NO_THROW(drawingPath(form, name, folder / "a.png", folder.path()));
        }
        EXPECT_THROW(drawingPath(PathForm::AsGiven, name, folder / "a.png", folder.path()), BadInput);
    }
}

#ifdef _WIN32
TEST(PathForm, RelativeToAnotherDriveIsAbsolute) {
    EXPECT_EQ(drawingPath(PathForm::Relative, "x", "D:\\a.png", "C:\\out"), L"D:\\a.png");
}
#endif

TEST(PathText, LettersOutsideAsciiSurviveEveryWay) {
    const std::string text = "täst 日本 😀.png";
    EXPECT_EQ(utf8FromPath(pathFromUtf8(text)), text);
    const std::wstring wide = wideFromPath(pathFromUtf8("ü😀"));
    EXPECT_EQ(wide, L"\u00fc\U0001F600");
}

#ifndef _WIN32
TEST(PathText, BytesThatAreNoTextAreAnErrorWhereADrawingWouldHoldThem) {
    const fs::path path(std::string("a\xFF.png"));
    EXPECT_THROW(wideFromPath(path), BadInput);
    EXPECT_THROW(utf8FromPath(path), BadInput);
    EXPECT_NE(quoted(path), "");
}

TEST(Manifest, LinksAmongTheFoldersAreFollowedButNotThePictureItself) {
    const TestFolder folder;
    writeFile(folder / "store/deep/picture.png", "");
    fs::create_directory_symlink(folder / "store/deep", folder / "link");
    fs::create_symlink(folder / "store/deep/picture.png", folder / "store/alias.png");
    const fs::path site = writeFile(
        folder / "SITE.json", siteText({imageText("link/../alias.png"), imageText("link/picture.png")}));
    const Manifest manifest = readManifest(site);
    EXPECT_EQ(manifest.pictureFile(0), folder / "store/alias.png");
    EXPECT_EQ(manifest.pictureFile(1), folder / "store/deep/picture.png");
}
#endif

} // namespace rasterplan_tool
