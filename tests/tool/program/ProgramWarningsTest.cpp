// What the program warns of; the drawing is written all the same.

#include "base/NumberText.h"
#include "base/PathText.h"
#include "tool/TestFiles.h"
#include "tool/program/Program.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <cmath>

namespace fs = std::filesystem;

namespace rasterplan_tool {
namespace {

class ProgramWarnings : public testing::Test {
protected:
    ProgramWarnings() {
        for (const char* name : {"a.png", "b.png", "c.png"})
            fs::copy_file(testData("grey-17x9.png"), m_folder / name);
    }

    // Runs a command that writes; returns what it said on stderr.
    std::string warnings(const std::string& command, const std::string& site,
                         const std::vector<std::string>& options = {}) {
        writeFile(m_folder / "SITE.json", site);
        std::vector<std::string> arguments{command, at("SITE.json"), at("out.dxf")};
        arguments.insert(arguments.end(), options.begin(), options.end());
        const ProgramResult result = runProgram(arguments);
        EXPECT_EQ(result.status, 0) << result.err;
        EXPECT_TRUE(fs::exists(m_folder / "out.dxf"));
        return result.err;
    }

    std::string at(std::string_view entry) const { return utf8FromPath(m_folder / entry); }

    TestFolder m_folder;
};

std::size_t linesOf(const std::string& text) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

} // namespace

TEST_F(ProgramWarnings, MissingPicture) {
    const std::string warning = warnings("3d", siteText({imageText("nö.png")}));
    EXPECT_EQ(warning.find("rasterplan: warning: " + at("SITE.json") + ":2: image 1 (\"nö.png\"): \"" +
                           at("nö.png") + "\": there is no such file"),
              0U)
        << warning;
}

TEST_F(ProgramWarnings, PathsAsGivenThatLeadNowhereFromTheDrawing) {
    fs::create_directories(m_folder / "sub/plan");
    fs::create_directory(m_folder / "plan");
    fs::copy_file(m_folder / "a.png", m_folder / "sub/a.png");
    fs::copy_file(m_folder / "c.png", m_folder / "plan/c.png");
    // A backslash would be no text of JSON.
    const std::u8string whole = (m_folder / "b.png").generic_u8string();
    writeFile(m_folder / "SITE.json",
              siteText({imageText("sub/a.png"), imageText(std::string(whole.begin(), whole.end()), 0.17),
                        imageText("none.png", 0.34), imageText("c.png", 0.51)}));
    const auto said = [&](const char* output) {
        return runProgram({"3d", at("SITE.json"), at(output), "--paths", "as-given"}).err;
    };
    const std::string warning = said("plan/out.dxf");
    EXPECT_NE(warning.find(":2: image 1 (\"sub/a.png\"): from the drawing's folder \"" + at("plan") +
                           "\" this path leads to no picture, so CAD programs will not find it; leave out"),
              std::string::npos)
        << warning;
    EXPECT_EQ(linesOf(warning), 2U) << warning; // the other one is that there is no none.png
    EXPECT_EQ(linesOf(said("out.dxf")), 1U);
}

TEST_F(ProgramWarnings, PixelCount) {
    std::string site = siteText({imageText("a.png")});
    site.replace(site.find("100}"), 3, "200");
    for (const char* command : {"3d", "2d"}) {
        const std::string warning = warnings(command, site);
        EXPECT_NE(warning.find(
                      "the picture has 17 x 9 pixels, but pixelsPerUnit times width and height gives 34.00 "
                      "x 18.00"),
                  std::string::npos)
            << warning;
        EXPECT_EQ(linesOf(warning), 1U);
    }
}

TEST_F(ProgramWarnings, StrictRunsFailAndLeaveTheOldDrawing) {
    const std::string site = siteText({imageText("a.png"), imageText("nö.png", 1.0)});
    EXPECT_EQ(linesOf(warnings("3d", site, {"--quiet"})), 0U);
    writeFile(m_folder / "out.dxf", "old");
    for (const char* command : {"3d", "2d"}) {
        const ProgramResult result = runProgram({command, at("SITE.json"), at("out.dxf"), "--strict"});
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.out, "");
        EXPECT_NE(result.err.find("there is no such file"), std::string::npos) << result.err;
        EXPECT_NE(result.err.find("\nrasterplan: error: 1 warning, which --strict"), std::string::npos)
            << result.err;
        EXPECT_EQ(readBytes(m_folder / "out.dxf"), "old");
    }
    EXPECT_EQ(warnings("3d", siteText({imageText("a.png")}), {"--strict"}), "");
}

TEST_F(ProgramWarnings, StrictReportsFailAndPrintNothing) {
    warnings("3d", siteText({imageText("a.png"), imageText("a.png", 1.0)}));
    for (const char* command : {"plane", "corners"}) {
        EXPECT_EQ(runProgram({command, at("SITE.json")}).status, 0);
        const ProgramResult result = runProgram({command, at("SITE.json"), "--strict"});
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.out, "");
        EXPECT_NE(result.err.find(":2: images 1, 2 show one file, "), std::string::npos) << result.err;
    }
}

TEST_F(ProgramWarnings, StrictViewsFailAndLeaveTheOldPage) {
    warnings("3d", siteText({imageText("nö.png")}));
    writeFile(m_folder / "out.html", "old");
    const ProgramResult result = runProgram({"view", at("out.dxf"), "--strict"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(readBytes(m_folder / "out.html"), "old");
    EXPECT_EQ(runProgram({"view", at("out.dxf"), "--quiet"}).err, "");
}

TEST_F(ProgramWarnings, MixedUnits) {
    std::string site = siteText({imageText("a.png"), imageText("b.png", 1.0)});
    site.insert(site.find("\"path\": \"b.png\""), "\"unit\": \"Inches\", ");
    const std::string warning = warnings("3d", site);
    EXPECT_NE(warning.find("note: " + at("SITE.json") +
                           ": converted into the site's unit, Meters: Inches (image 2)\n"),
              std::string::npos)
        << warning;
    EXPECT_EQ(linesOf(warning), 1U);
}

TEST_F(ProgramWarnings, ImagesAwayFromTheReferencePlaneAreNamed) {
    const std::vector<std::string> plane{"--origin=0,0,0", "--x-axis=1,0,0", "--y-axis=0,0,1"};
    const std::string site =
        siteText({imageText("a.png"), imageText("b.png", 1.0, 0.09), imageText("c.png", 2.0, 0.2)});
    const std::string warning = warnings("2d", site, plane);
    EXPECT_NE(
        warning.find(":4: image 3 (\"c.png\"): the image does not fit the reference plane: the distance is "
                     "-0.200000 Meters; write it in 3D or into a plane of its own\n"),
        std::string::npos)
        << warning;
    EXPECT_EQ(linesOf(warning), 1U) << warning;

    auto options = plane;
    options.insert(options.end(), {"--distance-tolerance", "0.05"});
    EXPECT_EQ(linesOf(warnings("2d", site, options)), 2U);
    options.back() = "0.3";
    EXPECT_EQ(warnings("2d", site, options), "");
    EXPECT_EQ(warnings("3d", site), "");
}

TEST_F(ProgramWarnings, DistanceToleranceFollowsTheUnit) {
    std::string site = siteText({imageText("a.png"), imageText("b.png", 1.0, 99.0)});
    site.insert(site.find("\"images\""), "\"unit\": \"Millimeters\", ");
    const std::vector<std::string> plane{"--origin=0,0,0", "--x-axis=1,0,0", "--y-axis=0,0,1"};
    EXPECT_EQ(warnings("2d", site, plane), "");
}

TEST_F(ProgramWarnings, ImagesTurnedOutOfThePlaneOrInItAreNamed) {
    const std::string oblique = R"({"path": "b.png", "leftTop": [0,0,0.09], "leftBottom": [0,0,0],
"rightBottom": [0.136,0.102,0], "pixelsPerUnit": 100})";
    const std::string turned = R"({"path": "c.png", "leftTop": [-0.054,0,0.072], "leftBottom": [0,0,0],
"rightBottom": [0.136,0,0.102], "pixelsPerUnit": 100})";
    const std::string warning = warnings("2d", siteText({imageText("a.png"), oblique, turned}),
                                         {"--origin=0,0,0", "--x-axis=1,0,0", "--y-axis=0,0,1"});
    EXPECT_NE(warning.find(
                  "image 2 (\"b.png\"): the image does not fit the reference plane: the angle out of it is "
                  "36.870 degrees, the distance is -0.102000 Meters;"),
              std::string::npos)
        << warning;
    EXPECT_NE(
        warning.find("image 3 (\"c.png\"): the image does not fit the reference plane: the turn in it is "
                     "36.870 degrees, the frame lies beside the picture by 0.102000 Meters (10.2 pixels);"),
        std::string::npos)
        << warning;
    EXPECT_EQ(linesOf(warning), 2U);
}

TEST_F(ProgramWarnings, ObliqueAxesAreNamed) {
    EXPECT_NE(
        warnings("2d", siteText({imageText("a.png")}), {"--origin=0,0,0", "--x-axis=1,0,1", "--y-axis=0,0,1"})
            .find("the plane's axes are at 45.000 degrees to each other instead of 90"),
        std::string::npos);
}

TEST_F(ProgramWarnings, PlaneAsJsonHoldsExactNumbers) {
    const std::string oblique = R"({"path": "süd.png", "leftTop": [0,0.1,0.09], "leftBottom": [0,0.1,0],
"rightBottom": [0.136,0.202,0], "pixelsPerUnit": 100})";
    const fs::path site = writeFile(m_folder / "SITE.json", siteText({imageText("a.png"), oblique}));
    const ProgramResult result = runProgram({"plane", utf8FromPath(site), "--json"});
    ASSERT_EQ(result.status, 0) << result.err;
    const nlohmann::json plane = nlohmann::json::parse(result.out);
    EXPECT_EQ(plane["unit"], "Meters");
    EXPECT_EQ(
        plane["verdict"],
        "One plane suits none of these images; write them in 3D, or those of each facade by themselves. "
        "y reads as height.");
    ASSERT_EQ(plane["images"].size(), 2U);
    EXPECT_EQ(plane["images"][1]["image"], 2);
    EXPECT_EQ(plane["images"][1]["path"], "süd.png");
    const double half = std::atan2(0.6, 1.8) * 45.0 / std::atan(1.0); // the mean of 0 and 36.87 degrees
    for (const auto& image : plane["images"]) {
        EXPECT_NEAR(image["angleDegrees"].get<double>(), half, 1e-9);
        EXPECT_NEAR(image["turnDegrees"].get<double>(), 0.0, 1e-9);
        EXPECT_EQ(image["frameDisplacement"], 0.0);
        EXPECT_EQ(image["heightError"], 0.0);
        EXPECT_EQ(image["suits"], false);
    }
    const auto asOption = [](const nlohmann::json& triple) {
        return shortestText(triple[0]) + ',' + shortestText(triple[1]) + ',' + shortestText(triple[2]);
    };
    EXPECT_NE(runProgram({"plane", utf8FromPath(site)})
                  .out.find("--origin=" + asOption(plane["origin"]) + " --x-axis=" +
                            asOption(plane["xAxis"]) + " --y-axis=" + asOption(plane["yAxis"]) + '\n'),
              std::string::npos);
}

} // namespace rasterplan_tool
