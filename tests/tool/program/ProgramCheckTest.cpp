#include "tool/program/Program.h"

#include "tool/TestFiles.h"

#include <nlohmann/json.hpp>

#include <gtest/gtest.h>

namespace rasterplan_tool {
namespace {

class CheckedDrawing : public testing::Test {
protected:
    CheckedDrawing() {
        writeFile(folder / "south.png", readBytes(testData("grey-17x9.png")));
        writeFile(folder / "site.json", siteText({imageText("south.png")}));
        EXPECT_EQ(runProgram({"3d", "site.json", "plan.dxf", "--paths", "relative"}, here).status, 0);
    }

    ProgramResult check(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), "check");
        return runProgram(arguments, here);
    }

    // Replaces a text of the drawing; fails the test when there is none.
    void breakDrawing(const std::string& from, const std::string& to) const {
        std::string text = readBytes(folder / "plan.dxf");
        const std::size_t at = text.find(from);
        ASSERT_NE(at, std::string::npos);
        writeFile(folder / "plan.dxf", text.replace(at, from.size(), to));
    }

    TestFolder folder;
    const ProgramSetting here = standingIn(folder.path());
};

} // namespace

TEST_F(CheckedDrawing, OfThisProgramIsRight) {
    const ProgramResult result = check({"plan.dxf"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "plan.dxf: 1 image, and nothing that hides one\n");
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(check({"plan.dxf", "--json"}).out, "[]\n");
}

TEST_F(CheckedDrawing, WithoutImagesIsSaidToHaveNone) {
    writeFile(folder / "empty.dxf", "0\nEOF\n");
    const ProgramResult result = check({"empty.dxf"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "empty.dxf: the drawing holds no image\n");
    writeFile(folder / "empty.dxf", "");
    EXPECT_EQ(check({"empty.dxf"}).status, 1); // what a write that failed leaves
}

TEST_F(CheckedDrawing, HasALineForEveryReason) {
    std::filesystem::remove(folder / "south.png");
    breakDrawing("ACAD_IMAGE_DICT", "ANOTHER\x1b[31m_DICT");
    const ProgramResult result = check({"plan.dxf"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out.find("plan.dxf:"), 0U) << result.out;
    EXPECT_NE(result.out.find(": DICTIONARY 9: the root dictionary has no entry"), std::string::npos)
        << result.out;
    EXPECT_NE(result.out.find(": IMAGEDEF 85: the picture file \"south.png\" is missing"), std::string::npos)
        << result.out;
    EXPECT_EQ(
        result.err,
        "rasterplan: error: \"plan.dxf\": 2 reasons why pictures may not show; mend the first one first\n");
}

TEST_F(CheckedDrawing, IsTheSameAsJson) {
    breakDrawing("south.png\r\n10\r\n", "s\xFC"
                                        "d\x1b.png\r\n10\r\n");
    const ProgramResult result = check({"--json", "plan.dxf"});
    EXPECT_EQ(result.status, 1);
    const nlohmann::json findings = nlohmann::json::parse(result.out);
    ASSERT_EQ(findings.size(), 1U);
    const nlohmann::json& finding = findings[0];
    EXPECT_EQ(finding.size(), 5U);
    EXPECT_EQ(finding["kind"], "file-missing");
    EXPECT_EQ(finding["record"], "IMAGEDEF");
    EXPECT_EQ(finding["handle"], "85");
    EXPECT_GT(finding["line"], 1000);
    EXPECT_NE(finding["text"].get<std::string>().find("\"süd\\x1b.png\" is missing; looked for at nowhere"),
              std::string::npos)
        << finding["text"];
}

TEST_F(CheckedDrawing, CannotBeReadIsAFailureOfItsOwn) {
    const auto error = [this](const std::string& name) {
        const ProgramResult result = check({name});
        EXPECT_EQ(result.status, 2) << name;
        EXPECT_EQ(result.out, "") << name;
        return result.err;
    };
    EXPECT_NE(error("no.dxf").find("\"no.dxf\" cannot be opened"), std::string::npos);
    EXPECT_NE(error(".").find("is a folder"), std::string::npos);
    writeFile(folder / "plan.dwg", "AC1024 and more");
    EXPECT_NE(error("plan.dwg").find("is a DWG drawing"), std::string::npos);
    writeFile(folder / "binary.dxf", std::string_view("AutoCAD Binary DXF\r\n\x1a\0", 22));
    EXPECT_NE(error("binary.dxf").find("is a binary DXF"), std::string::npos);
    EXPECT_NE(error("site.json").find("is no DXF drawing"), std::string::npos);
    if (std::filesystem::path::preferred_separator == '/') { // a file of Linux that nobody can read
        EXPECT_NE(error("/proc/self/mem").find("cannot be read to its end"), std::string::npos);
    }
}

} // namespace rasterplan_tool
