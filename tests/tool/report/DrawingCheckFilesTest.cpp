#include "report/DrawingCheckFiles.h"

#include "base/PathText.h"
#include "tool/TestFiles.h"

#include <gtest/gtest.h>

namespace rasterplan_tool {
namespace {

using Paths = std::vector<std::filesystem::path>;

constexpr bool isWindows = std::filesystem::path::preferred_separator == '\\';

// A drawing of one image, with this file and size in its definition.
std::string drawingText(const std::string& file, const std::string& width = "17",
                        const std::string& height = "9") {
    return "0\nSECTION\n2\nENTITIES\n0\nIMAGE\n5\n8A\n340\n8B\n0\nENDSEC\n0\nSECTION\n2\nOBJECTS\n0\nIMAGEDEF"
           "\n5\n8B\n1\n" +
           file + "\n10\n" + width + "\n20\n" + height +
           "\n0\nIMAGEDEF\n5\n8D\n1\nnobody-shows-it.png\n0\nENDSEC\n0\nEOF\n";
}

class DrawingCheckFiles : public testing::Test {
protected:
    std::vector<Finding> findings(const std::string& text) const {
        return checkFiles(readDrawing(text), folder / "plan.dxf");
    }

    std::vector<FindingKind> kinds(const std::string& text) const {
        std::vector<FindingKind> found;
        for (const Finding& finding : findings(text)) {
            EXPECT_EQ(finding.record, "IMAGEDEF");
            EXPECT_EQ(finding.handle, "8B");
            EXPECT_EQ(finding.line, 17U);
            found.push_back(finding.kind);
        }
        return found;
    }

    void copyPicture(std::string_view name) const {
        writeFile(folder / name, readBytes(testData("grey-17x9.png")));
    }

    TestFolder folder;
    const std::vector<FindingKind> none = {};
    const std::vector<FindingKind> missing{FindingKind::FileMissing};
};

} // namespace

TEST_F(DrawingCheckFiles, DefinitionWithoutAFile) {
    EXPECT_EQ(kinds(drawingText("")), std::vector<FindingKind>{FindingKind::NoFile});
    EXPECT_EQ(kinds(drawingText("  ")), std::vector<FindingKind>{FindingKind::NoFile});
}

TEST_F(DrawingCheckFiles, FileIsFoundByEveryFormOfItsPath) {
    EXPECT_EQ(kinds(drawingText("south.png")), missing);
    copyPicture("south.png");
    copyPicture("pictures/east ä.png");
    const std::string absolute = utf8FromPath(folder / "pictures/east ä.png");
    for (const std::string& path :
         {std::string("south.png"), std::string("./south.png"), absolute, std::string("pictures/east ä.png"),
          std::string(".\\pictures\\east ä.png"), std::string("pictures/east \\U+00E4.png"),
          std::string("pictures/east \xE4.png"), std::string("Z:\\moved\\from here\\south.png"),
          std::string("/moved/from here/south.png"), std::string("..\\pictures\\south.png")})
        EXPECT_EQ(kinds(drawingText(path)), none) << path;
    EXPECT_EQ(kinds(drawingText("pictures")), missing); // a folder
    EXPECT_EQ(kinds(drawingText("east ä.png")), missing);
}

TEST_F(DrawingCheckFiles, EachPlaceIsNamed) {
    const std::vector<Finding> found = findings(drawingText("pictures/south.png"));
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].text, "the picture file \"pictures/south.png\" is missing; looked for at " +
                                 shownText(folder / "pictures/south.png") + ", " +
                                 shownText(folder / "south.png") +
                                 "; put the file beside the drawing or correct the path in code 1");
    const std::string onDrive = findings(drawingText("D:\\south.png")).at(0).text;
    EXPECT_EQ(onDrive.find("one of Windows") == std::string::npos, isWindows) << onDrive;
}

TEST_F(DrawingCheckFiles, PlacesOfAPath) {
    const std::filesystem::path plans = folder / "plans";
    const auto in = [&plans](const char* entry) { return (plans / entry).make_preferred(); };
    EXPECT_EQ(picturePlaces("a.png", plans), Paths{in("a.png")});
    EXPECT_EQ(picturePlaces("p/a.png", plans), (Paths{in("p/a.png"), in("a.png")}));
    EXPECT_EQ(picturePlaces("a\nb.png", plans), Paths());
    EXPECT_EQ(picturePlaces("p/", plans), Paths{in("p/")});
    const std::string absolute = utf8FromPath(folder / "a.png");
    EXPECT_EQ(picturePlaces(absolute, plans).front(), folder / "a.png");
    EXPECT_EQ(picturePlaces(absolute, plans).back(), in("a.png"));
    if (!isWindows) {
        EXPECT_EQ(picturePlaces("p\\a.png", plans), (Paths{plans / "p\\a.png", in("p/a.png"), in("a.png")}));
        EXPECT_EQ(picturePlaces("\\\\server\\p\\a.png", plans), Paths{in("a.png")});
    }
}

TEST_F(DrawingCheckFiles, PixelCountsOfDefinitionAndFile) {
    copyPicture("south.png");
    const std::vector<FindingKind> differs{FindingKind::PixelCount};
    EXPECT_EQ(kinds(drawingText("south.png", "16.99999999999999")), none);
    EXPECT_EQ(kinds(drawingText("south.png", "18")), differs);
    EXPECT_EQ(kinds(drawingText("south.png", "17", "8.0")), differs);
    EXPECT_EQ(kinds(drawingText("south.png", "no number")), none);
    EXPECT_NE(findings(drawingText("south.png", "18")).at(0).text.find("has 17 x 9"), std::string::npos);
}

TEST_F(DrawingCheckFiles, FileThatIsNoPicture) {
    writeFile(folder / "south.PNG", "no picture");
    writeFile(folder / "south.ecw", "of a format that is not known here");
    EXPECT_EQ(kinds(drawingText("south.PNG")), std::vector<FindingKind>{FindingKind::UnreadableFile});
    EXPECT_EQ(kinds(drawingText("south.ecw")), none);
}

} // namespace rasterplan_tool
