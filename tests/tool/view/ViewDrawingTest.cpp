#include "tool/TestFiles.h"
#include "tool/program/Program.h"

#include <gtest/gtest.h>

namespace fs = std::filesystem;

namespace rasterplan_tool {
namespace {

// A drawing of two pictures of 17 x 9 pixels, written into the folder.
void writeSite(const TestFolder& folder) {
    writeFile(folder / "a.png", readBytes(testData("grey-17x9.png")));
    writeFile(folder / "b.jpg", readBytes(testData("grey-17x9.jpg")));
    writeFile(folder / "SITE.json", siteText({imageText("a.png"), imageText("b.jpg", 1.0)}));
    const ProgramResult written =
        runProgram({"3d", "SITE.json", "site.dxf", "--paths", "relative"}, standingIn(folder.path()));
    ASSERT_EQ(written.status, 0) << written.err;
}

ProgramResult viewIn(const TestFolder& folder, std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "view");
    return runProgram(arguments, standingIn(folder.path()));
}

} // namespace

TEST(ViewDrawing, WritesAPageBesideTheDrawing) {
    const TestFolder folder;
    writeSite(folder);
    const ProgramResult result = viewIn(folder, {"site.dxf"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_TRUE(holds(result.out, "site.html: 2 pictures; open it with a browser\n"));
    const std::string page = readBytes(folder / "site.html");
    EXPECT_TRUE(holds(page, R"("source":"a.png")"));
    EXPECT_TRUE(holds(page, R"("source":"b.jpg")"));
}

TEST(ViewDrawing, LinksFromThePagesFolder) {
    const TestFolder folder;
    writeSite(folder);
    writeFile(folder / "pages/old.html", "");
    EXPECT_EQ(viewIn(folder, {"site.dxf", "pages/new.html"}).status, 0);
    EXPECT_TRUE(holds(readBytes(folder / "pages/new.html"), R"("source":"../a.png")"));
}

TEST(ViewDrawing, EmbedsPictures) {
    const TestFolder folder;
    writeSite(folder);
    EXPECT_EQ(viewIn(folder, {"site.dxf", "--embed"}).status, 0);
    const std::string page = readBytes(folder / "site.html");
    EXPECT_TRUE(holds(page, R"("source":"data:image/png;base64,iVBORw0KGgo)"));
    EXPECT_TRUE(holds(page, R"("source":"data:image/jpeg;base64,/9j/)"));
}

TEST(ViewDrawing, WarnsOfPicturesThatABrowserDoesNotShow) {
    const TestFolder folder;
    writeSite(folder);
    fs::remove(folder / "a.png");
    writeFile(folder / "b.jpg", "II*");
    const ProgramResult result = viewIn(folder, {"site.dxf", "--embed"});
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(holds(result.err, "warning: \"a.png\": no such picture"));
    EXPECT_TRUE(holds(result.err, "warning: \"b.jpg\": browsers do not show this kind of picture"));
    const std::string page = readBytes(folder / "site.html");
    EXPECT_TRUE(holds(page, R"("source":"a.png")")); // it may come back
    EXPECT_TRUE(holds(page, R"("source":"b.jpg")"));
}

TEST(ViewDrawing, ReplacesNoInput) {
    const TestFolder folder;
    writeSite(folder);
    const std::string drawing = readBytes(folder / "site.dxf");
    const std::string picture = readBytes(folder / "a.png");
    ProgramResult result = viewIn(folder, {"site.dxf", "./site.dxf"});
    EXPECT_EQ(result.status, 2);
    EXPECT_TRUE(holds(result.err, "this is the drawing itself")) << result.err;
    result = viewIn(folder, {"site.dxf", "a.png"});
    EXPECT_EQ(result.status, 2);
    EXPECT_TRUE(holds(result.err, "this is a picture of the drawing")) << result.err;
    EXPECT_EQ(readBytes(folder / "site.dxf"), drawing);
    EXPECT_EQ(readBytes(folder / "a.png"), picture);
}

TEST(ViewDrawing, AFailedRunLeavesTheOldPage) {
    const TestFolder folder;
    writeFile(folder / "site.dxf", "no drawing");
    writeFile(folder / "site.html", "old");
    EXPECT_EQ(viewIn(folder, {"site.dxf"}).status, 2);
    EXPECT_EQ(readBytes(folder / "site.html"), "old");
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"site.dxf", "site.html"}));
}

#ifndef _WIN32
TEST(ViewDrawing, APageThatDoesNotFitOnTheDiskIsDiscarded) {
    const TestFolder folder;
    writeSite(folder);
    writeFile(folder / "site.html", "old");
    ProgramSetting setting = afterShell("trap '' XFSZ; ulimit -f 100; ");
    setting.workingFolder = folder.path();
    const ProgramResult result = runProgram({"view", "site.dxf"}, setting);
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(holds(result.err, "the page could not be written; the disk is probably full")) << result.err;
    EXPECT_EQ(readBytes(folder / "site.html"), "old");
}
#endif

TEST(ViewDrawing, FollowsAnExport) {
    const TestFolder folder;
    writeSite(folder);
    for (const char* kind : {"3d", "2d"}) {
        fs::remove(folder / "site.html");
        const ProgramResult result =
            runProgram({kind, "SITE.json", "site.dxf", "--view"}, standingIn(folder.path()));
        EXPECT_EQ(result.status, 0) << result.err;
        EXPECT_TRUE(holds(result.out, "site.dxf: 2 images")) << result.out;
        EXPECT_TRUE(holds(result.out, "site.html: 2 pictures")) << result.out;
        EXPECT_TRUE(fs::exists(folder / "site.html"));
    }
}

} // namespace rasterplan_tool
