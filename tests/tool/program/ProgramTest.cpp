// The program does what its users ask for.

#include "tool/program/Program.h"
#include "base/PathText.h"
#include "tool/TestFiles.h"

#include <RasterPlanWriter/RasterPlanWriter.h>
#include <gtest/gtest.h>

namespace fs = std::filesystem;

namespace rasterplan_tool {
namespace {

std::string example(const char* site) {
    return utf8FromPath((pathFromUtf8(RASTERPLAN_EXAMPLES) / site / "SITE.json").make_preferred());
}

// Whether the drawing has a line with exactly this text.
bool hasLine(const std::string& drawing, const std::string& line) {
    return drawing.find("\r\n" + line + "\r\n") != std::string::npos;
}

std::size_t countOf(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t place = text.find(part); place != std::string::npos; place = text.find(part, place + 1))
        ++count;
    return count;
}

class Program : public testing::Test {
protected:
    Program() {
        fs::create_directory(m_folder / "bilder");
        fs::copy_file(testData("grey-17x9.png"), m_folder / "bilder/süd.png");
        fs::copy_file(testData("grey-17x9.jpg"), m_folder / "bilder/b.jpg");
        writeFile(m_folder / "SITE.json",
                  siteText({imageText("bilder/süd.png", 0.17), imageText("bilder/b.jpg")}));
    }

    std::string at(std::string_view entry) const { return utf8FromPath(m_folder / entry); }

    TestFolder m_folder;
};

} // namespace

TEST_F(Program, HelpAndVersionEndWell) {
    const ProgramResult help = runProgram({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.out.find("Usage: rasterplan"), std::string::npos);
    EXPECT_EQ(help.err, "");
    EXPECT_EQ(runProgram({"--version"}).out.find("rasterplan "), 0U);
}

TEST_F(Program, WritesTheDrawingAndSaysSo) {
    for (const char* command : {"3d", "2d"}) {
        const ProgramResult result = runProgram({command, at("SITE.json"), at("out ü.dxf")});
        EXPECT_EQ(result.status, 0) << result.err;
        EXPECT_EQ(result.err, "");
        const std::string drawing = readBytes(m_folder / "out ü.dxf");
        EXPECT_EQ(result.out, at("out ü.dxf") + ": 2 images, " + std::to_string(drawing.size()) + " bytes\n");
        EXPECT_EQ(countOf(drawing, "0\r\nIMAGE\r\n"), 2U);
        EXPECT_EQ(countOf(drawing, "\r\nAcDbLine\r\n"), 12U);
        EXPECT_EQ(m_folder.names(), (std::vector<std::string>{"SITE.json", "bilder", "out ü.dxf"}));
    }
}

TEST_F(Program, DrawingIsTheLibrarysButForTheViewMode) {
    RasterPlanWriter library(wideFromPath(m_folder / "library.dxf").c_str());
    ImageParam image(L"bilder/b.jpg");
    image.setDrawingUnit(Meters);
    image.setNumberPixelPerUnit(100.0);
    image.setImageCorners({0.0, 0.0, 0.09}, {0.0, 0.0, 0.0}, {0.17, 0.0, 0.0});
    ASSERT_EQ(library.add(image), RasterPlanWriter::Success);
    ASSERT_EQ(library.create3DDxf(), RasterPlanWriter::Success);
    std::string expected = readBytes(m_folder / "library.dxf");
    const std::string viewMode = "\r\n71\r\n0.0\r\n";
    ASSERT_EQ(countOf(expected, viewMode), 1U);
    expected.replace(expected.find(viewMode), viewMode.size(), "\r\n71\r\n  0\r\n");

    writeFile(m_folder / "one.json", siteText({imageText("bilder/b.jpg")}));
    EXPECT_EQ(runProgram({"3d", at("one.json"), at("tool.dxf"), "--paths=as-given"}).status, 0);
    EXPECT_EQ(readBytes(m_folder / "tool.dxf"), expected);
}

TEST_F(Program, PathsInTheDrawingAreRelativeUnlessAskedOtherwise) {
    fs::create_directory(m_folder / "plan");
    const auto drawingWith = [&](const std::vector<std::string>& options) {
        std::vector<std::string> arguments{"3d", at("SITE.json"), at("plan/out.dxf")};
        arguments.insert(arguments.end(), options.begin(), options.end());
        EXPECT_EQ(runProgram(arguments).status, 0);
        return readBytes(m_folder / "plan/out.dxf");
    };
    const std::string relative = drawingWith({});
    EXPECT_TRUE(hasLine(relative, "../bilder/süd.png"));
    EXPECT_TRUE(hasLine(relative, "../bilder/b.jpg"));
    EXPECT_EQ(drawingWith({"--paths", "relative"}), relative);
    EXPECT_TRUE(hasLine(drawingWith({"--paths", "absolute"}), at("bilder/süd.png")));
    EXPECT_TRUE(hasLine(drawingWith({"--paths", "as-given"}), "bilder/süd.png"));
}

TEST_F(Program, CollectedPicturesMoveWithTheDrawing) {
    fs::create_directory(m_folder / "plan");
    for (int run = 0; run < 2; ++run) {
        const ProgramResult result = runProgram({"3d", at("SITE.json"), at("plan/out.dxf"), "--collect"});
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.err, "");
    }
    EXPECT_TRUE(hasLine(readBytes(m_folder / "plan/out.dxf"), "süd.png"));
    fs::rename(m_folder / "plan", m_folder / "elsewhere");
    fs::remove_all(m_folder / "bilder");
    EXPECT_EQ(runProgram({"check", at("elsewhere/out.dxf")}).status, 0);
}

TEST_F(Program, RelativeArgumentsCountFromTheWorkingFolder) {
    const ProgramResult result = runProgram({"3d", "SITE.json", "out.dxf"}, standingIn(m_folder.path()));
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_TRUE(hasLine(readBytes(m_folder / "out.dxf"), "bilder/süd.png"));
}

TEST_F(Program, SameInputGivesTheSameBytes) {
    ASSERT_EQ(runProgram({"3d", at("SITE.json"), at("a.dxf")}).status, 0);
    ASSERT_EQ(runProgram({"3d", at("SITE.json"), at("b.dxf")}).status, 0);
    EXPECT_EQ(readBytes(m_folder / "a.dxf"), readBytes(m_folder / "b.dxf"));
}

TEST_F(Program, PlaneIsProposedAsATable) {
    const ProgramResult result = runProgram({"plane", at("SITE.json")});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out,
              "Reference plane (Meters):\n"
              "\n"
              "                  x            y            z\n"
              "origin     0.000000     0.000000     0.000000\n"
              "x axis  1.000000000  0.000000000  0.000000000\n"
              "y axis  0.000000000  0.000000000  1.000000000\n"
              "\n"
              "The same for rasterplan 2d:\n"
              "\n"
              "  --origin=0,0,0 --x-axis=1,0,0 --y-axis=0,0,1\n"
              "\n"
              "How each image lies to it: distance of its furthest corner, angle out of the plane and\n"
              "turn in it in degrees, and how far its frame lies beside the picture:\n"
              "\n"
              "image  distance   angle    turn     frame  picture\n"
              "    1  0.000000  0.0000  0.0000  0.000000  bilder/süd.png\n"
              "    2  0.000000  0.0000  0.0000  0.000000  bilder/b.jpg\n"
              "\n"
              "One plane suits all 2 images. y reads as height.\n");
}

TEST_F(Program, PlaneTouchesNoFile) {
    EXPECT_EQ(runProgram({"plane", "SITE.json"}, standingIn(m_folder.path())).status, 0);
    EXPECT_EQ(m_folder.names(), (std::vector<std::string>{"SITE.json", "bilder"}));
}

TEST_F(Program, ProposedPlaneGivenByOptionsYieldsTheSameDrawing) {
    ASSERT_EQ(runProgram({"2d", example("elevation"), at("proposed.dxf")}).status, 0);
    const std::string table = runProgram({"plane", example("elevation")}).out;
    std::vector<std::string> arguments{"2d", example("elevation"), at("given.dxf")};
    for (const char* option : {"--origin=", "--x-axis=", "--y-axis="}) {
        const std::size_t start = table.find(option);
        ASSERT_NE(start, std::string::npos);
        arguments.push_back(table.substr(start, table.find_first_of(" \n", start) - start));
    }
    const ProgramResult result = runProgram(arguments);
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(readBytes(m_folder / "given.dxf"), readBytes(m_folder / "proposed.dxf"));
}

namespace {

// A site with every way of placing an image and with several units.
class ProgramWithEveryWay : public Program {
protected:
    ProgramWithEveryWay() {
        for (const char* name : {"map-17x9.tif", "map-17x9-tiles.tif", "map-17x9.tfw"})
            fs::copy_file(testData(name), m_folder / "bilder" / name);
        writeFile(m_folder / "SITE.json", R"({"$schema": "x", "unit": "m", "_note": "every way", "images": [
{"path": "bilder/süd.png", "leftTop": [-0.0, 1e-7, 900.5], "leftBottom": [-0.0, 1e-7, 0.5],
 "rightBottom": [1700, 1e-7, 0.5], "pixelsPerUnit": 0.01, "unit": "mm", "name": "Süd \"1\""},
{"path": "bilder/b.jpg", "leftBottom": [0.1, 0.2, 0.3], "right": [3, 4, 0], "up": [0, 0, 7], "pixelsPerUnit": 3},
{"path": "bilder/map-17x9.tif", "elevation": 0.7},
{"path": "bilder/map-17x9-tiles.tif", "worldFile": "bilder/map-17x9.tfw",
 "plane": {"origin": [4468215.1, 0, 0], "xAxis": [1, 2, 0], "yAxis": [0, 0, 3]}}]})");
    }
};

} // namespace

TEST_F(ProgramWithEveryWay, CornersGiveTheSameDrawing) {
    ASSERT_EQ(runProgram({"3d", at("SITE.json"), at("ways.dxf")}).status, 0);
    const ProgramResult corners = runProgram({"corners", at("SITE.json")});
    EXPECT_EQ(corners.status, 0) << corners.err;
    writeFile(m_folder / "CORNERS.json", corners.out);
    const ProgramResult result = runProgram({"3d", at("CORNERS.json"), at("corners.dxf")});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(readBytes(m_folder / "corners.dxf"), readBytes(m_folder / "ways.dxf"));
    EXPECT_EQ(runProgram({"corners", at("CORNERS.json")}).out, corners.out);
}

TEST_F(ProgramWithEveryWay, CornersAreASite) {
    const std::string site = runProgram({"corners", at("SITE.json")}).out;
    EXPECT_EQ(site.find("{\n"
                        "  \"unit\": \"Meters\",\n"
                        "  \"images\": [\n"
                        "    {\n"
                        "      \"path\": \"bilder/süd.png\",\n"
                        "      \"name\": \"Süd \\\"1\\\"\",\n"
                        "      \"leftTop\": [-0.0, 1e-10, 0.9005],\n"),
              0U)
        << site;
    EXPECT_NE(site.find("    {\n"
                        "      \"path\": \"bilder/map-17x9.tif\",\n"
                        "      \"leftTop\": [1000, 2000, 0.7],\n"
                        "      \"leftBottom\": [1000, 1995.5, 0.7],\n"
                        "      \"rightBottom\": [1008.5, 1995.5, 0.7],\n"
                        "      \"pixelsPerUnit\": 2\n"
                        "    },\n"),
              std::string::npos)
        << site;
}

TEST_F(ProgramWithEveryWay, ConversionIsSaidAndNothingElse) {
    const std::string note = "rasterplan: note: " + at("SITE.json") +
                             ": converted into the site's unit, Meters: Millimeters (image 1)\n";
    EXPECT_EQ(runProgram({"3d", at("SITE.json"), at("out.dxf")}).err, note);
    EXPECT_EQ(runProgram({"corners", at("SITE.json")}).err, note);
}

#ifndef _WIN32
TEST_F(Program, NoLocaleChangesTheDrawing) {
    ASSERT_EQ(runProgram({"2d", at("SITE.json"), at("plain.dxf")}).status, 0);
    for (const char* locale : {"C", "de_DE.UTF-8"}) {
        const ProgramResult result =
            runProgram({"2d", at("SITE.json"), at("locale.dxf")},
                       afterShell("LC_ALL=" + std::string(locale) + "; export LC_ALL; "));
        EXPECT_EQ(result.status, 0) << result.err;
        EXPECT_EQ(readBytes(m_folder / "locale.dxf"), readBytes(m_folder / "plain.dxf")) << locale;
    }
}

TEST_F(Program, OutputLinkStaysALink) {
    writeFile(m_folder / "real.dxf", "old");
    fs::create_symlink("real.dxf", m_folder / "link.dxf");
    EXPECT_EQ(runProgram({"3d", at("SITE.json"), at("link.dxf")}).status, 0);
    EXPECT_TRUE(fs::is_symlink(m_folder / "link.dxf"));
    EXPECT_TRUE(hasLine(readBytes(m_folder / "real.dxf"), "bilder/süd.png"));
}
#endif

} // namespace rasterplan_tool
