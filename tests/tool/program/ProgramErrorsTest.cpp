// Every mistake and mishap: the status is not 0, the words say what, where and what to do, an existing
// drawing stays, and nothing is left beside it.

#include "base/PathText.h"
#include "support/OrdinaryUser.h"
#include "tool/TestFiles.h"
#include "tool/program/Program.h"
#include "tool/program/ProgramCopy.h"

#include <gtest/gtest.h>

#include <cctype>

namespace fs = std::filesystem;

namespace rasterplan_tool {
namespace {

class ProgramErrors : public testing::Test {
protected:
    ProgramErrors() {
        fs::copy_file(testData("grey-17x9.png"), m_folder / "a.png");
        writeFile(m_folder / "SITE.json", siteText({imageText("a.png")}));
        writeFile(m_folder / "out.dxf", "good drawing");
    }

    std::string at(std::string_view entry) const { return utf8FromPath(m_folder / entry); }

    // Runs the program, which must fail with this status and these words and leave everything as it was.
    void expectFailure(const std::vector<std::string>& arguments, int status, const std::string& words,
                       const ProgramSetting& setting = {}) {
        const std::vector<std::string> before = m_folder.names();
        const ProgramResult result = runProgram(arguments, setting);
        EXPECT_EQ(result.status, status) << result.err;
        EXPECT_EQ(result.out, "");
        EXPECT_NE(result.err.find("rasterplan: error: "), std::string::npos) << result.err;
        EXPECT_NE(result.err.find(words), std::string::npos) << result.err;
        EXPECT_NE(result.err.find("; "), std::string::npos) << "says nothing to do: " << result.err;
        EXPECT_EQ(readBytes(m_folder / "out.dxf"), "good drawing");
        EXPECT_EQ(m_folder.names(), before);
    }

    void expectSiteFailure(const std::string& site, const std::string& words) {
        writeFile(m_folder / "SITE.json", site);
        for (const char* command : {"3d", "2d"})
            expectFailure({command, at("SITE.json"), at("out.dxf")}, 2, words);
        expectFailure({"plane", at("SITE.json")}, 2, words);
    }

    TestFolder m_folder;
};

std::string siteWithCorners(const std::string& corners) {
    return "{\"images\": [\n{\"path\": \"a.png\", \"pixelsPerUnit\": 100, " + corners + "}]}";
}

} // namespace

TEST_F(ProgramErrors, WrongCommandLine) {
    expectFailure({}, 2, "no command is given");
    expectFailure({"4d"}, 2, "\"4d\" is no command; the commands are 3d, 2d, plane, corners, view and check");
    expectFailure({"3d", at("SITE.json")}, 2, "OUT.dxf is required");
    expectFailure({"3d", at("SITE.json"), at("out.dxf"), "--paths", "x"}, 2, "--paths: x not in");
    expectFailure({"2d", at("SITE.json"), at("out.dxf"), "--origin", "1,2"}, 2, "give all three");
    expectFailure({"2d", at("SITE.json"), at("out.dxf"), "--origin=1,2", "--x-axis=1,0,0", "--y-axis=0,1,0"},
                  2, "--origin: \"1,2\" is not x,y,z");
    expectFailure(
        {"2d", at("SITE.json"), at("out.dxf"), "--origin=0,0,0", "--x-axis=1,0,0", "--y-axis=1,0,0"}, 2,
        "span no plane");
}

TEST_F(ProgramErrors, UnusableSiteFile) {
    for (const char* command : {"3d", "2d"}) {
        expectFailure({command, at("no.json"), at("out.dxf")}, 2,
                      '"' + at("no.json") + "\": there is no such file");
        expectFailure({command, utf8FromPath(m_folder.path()), at("out.dxf")}, 2, "this is a folder");
    }
    expectFailure({"plane", at("no.json")}, 2, "there is no such file");
}

TEST_F(ProgramErrors, WrongSite) {
    const std::string place = at("SITE.json");
    expectSiteFailure("", place + ":1:1: this is not JSON: there is nothing in it");
    expectSiteFailure("{\"images\": [\n{\"path\": \"a\"\n \"leftTop\"",
                      place + ":3:2: image 1: this is not JSON: a comma is missing before \"leftTop\"");
    expectSiteFailure("{\"images\": []}", place + ":1: the site, field \"images\": is an empty list");
    expectSiteFailure("{\"images\": [\n{}]}", place + ":2: image 1 has no field \"path\"");
    expectSiteFailure("{\"unit\": \"Metters\",\n\"images\": []}",
                      place + ":1: the site, field \"unit\": is \"Metters\", which is no unit");
    std::string site = siteText({imageText("a.png")});
    expectSiteFailure(site.replace(site.find("100}"), 3, "\n0"),
                      place + ":3: image 1, field \"pixelsPerUnit\": is 0; write a number greater than 0");
}

TEST_F(ProgramErrors, ImagesThatAreNoRectangles) {
    const std::string place = at("SITE.json") + ":2: image 1 (\"a.png\"): ";
    expectSiteFailure(
        siteWithCorners(R"("leftTop": [0,0.1,1], "leftBottom": [0,0,0], "rightBottom": [0,2,0])"),
        place +
            "the corners are no rectangle: the angle at leftBottom is 84.289 degrees instead of 90; correct");
    expectSiteFailure(
        siteWithCorners(R"("leftTop": [0,0,1], "leftBottom": [0,0,0], "rightBottom": [1e-11,0,0])"),
        place + "the corners are no rectangle: it is 1e-11 wide and 1 high; correct");
    expectSiteFailure(
        siteWithCorners(R"("leftTop": [0,0,1], "leftBottom": [0,0,0], "rightBottom": [5e-324,0,0])"), place);
    expectSiteFailure(siteWithCorners(R"("leftTop": [0,0,1], "leftBottom": [1,2,3], "rightBottom": [1,2,3])"),
                      "image 1, field \"rightBottom\": is the same point as leftBottom");
}

TEST_F(ProgramErrors, EveryImageThatIsNoRectangleIsNamed) {
    const std::string skew =
        R"({"path": "b.png", "leftTop": [1,0,1], "leftBottom": [0,0,0], "rightBottom": [1,0,0], "pixelsPerUnit": 1})";
    writeFile(m_folder / "SITE.json", siteText({skew, imageText("a.png"), skew}));
    const ProgramResult result = runProgram({"3d", at("SITE.json"), at("out.dxf")});
    EXPECT_EQ(result.status, 2);
    EXPECT_NE(result.err.find(":2: image 1 (\"b.png\"): the corners are no rectangle"), std::string::npos);
    EXPECT_NE(result.err.find(":4: image 3 (\"b.png\"): the corners are no rectangle"), std::string::npos);
    EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 2) << result.err;
}

TEST_F(ProgramErrors, ImagesWithoutACommonPlane) {
    const std::string opposite =
        R"({"path": "b.png", "leftTop": [1,0,1], "leftBottom": [1,0,0], "rightBottom": [0,0,0], "pixelsPerUnit": 1})";
    writeFile(m_folder / "SITE.json", siteText({imageText("a.png"), opposite}));
    expectFailure({"plane", at("SITE.json")}, 2, "the images have no common plane");
    expectFailure({"2d", at("SITE.json"), at("out.dxf")}, 2, "the images have no common plane");
}

TEST_F(ProgramErrors, UnusableOutput) {
    for (const char* command : {"3d", "2d"}) {
        expectFailure({command, at("SITE.json"), at("no/out.dxf")}, 1,
                      "the folder \"" + at("no") + "\" does not exist; create it");
        expectFailure({command, at("SITE.json"), utf8FromPath(m_folder.path())}, 1,
                      "this is a folder; name a file");
        expectFailure({command, at("SITE.json"), ""}, 2, "the output path is empty");
    }
}

TEST_F(ProgramErrors, OutputThatWouldReplaceTheInput) {
    const std::string site = readBytes(m_folder / "SITE.json");
    const std::string picture = readBytes(m_folder / "a.png");
    expectFailure({"3d", at("SITE.json"), at("SITE.json")}, 2, "this is SITE.json itself");
    expectFailure({"3d", at("SITE.json"), at("a.png")}, 2, "this is the picture of image 1");
    EXPECT_EQ(readBytes(m_folder / "SITE.json"), site);
    EXPECT_EQ(readBytes(m_folder / "a.png"), picture);
    writeFile(m_folder / "SITE.json", siteText({imageText("a.png"), imageText("./missing.png")}));
    expectFailure({"3d", at("SITE.json"), at("missing.png")}, 2, "this is the picture of image 2");
    writeFile(m_folder / "SITE.json", siteText({R"({"path": "a.png"})"}));
    writeFile(m_folder / "a.pgw", "1\n0\n0\n-1\n0\n0\n");
    expectFailure({"3d", at("SITE.json"), at("a.pgw")}, 2, "this is the world file of image 1");
}

TEST_F(ProgramErrors, ImagesThatLoseTheirShapeFarFromTheOrigin) {
    // As far as the origin lies coordinates are multiples of 1/8.
    const std::string square =
        R"({"path": "a.png", "leftTop": [0,0,64], "leftBottom": [0,0,0], "rightBottom": [64,0,0], "pixelsPerUnit": 1})";
    const std::string turned =
        R"({"path": "b.png", "leftTop": [-0.54,0,0.72], "leftBottom": [0,0,0], "rightBottom": [1.36,0,1.02], "pixelsPerUnit": 1})";
    const std::vector<std::string> arguments{
        "2d", at("SITE.json"), at("out.dxf"), "--origin=1e15,0,1e15", "--x-axis=1,0,0", "--y-axis=0,0,1"};
    writeFile(m_folder / "SITE.json", siteText({square, turned}));
    expectFailure(arguments, 1, "only 1 of the 2 images came into the drawing, which was discarded");
    writeFile(m_folder / "SITE.json", siteText({turned}));
    expectFailure(arguments, 1,
                  "so far from the plane's origin the images have lost their shape; give an --origin");
}

TEST_F(ProgramErrors, NamesThatSteerATerminalAreShown) {
    expectSiteFailure("{\"\\u001b[2J\": 1}", "has the unknown field \"\\x1b[2J\"; the fields are");
    expectSiteFailure("{\"unit\": \"\\n\\u009b\"}", "is \"\\n\\u009b\", which is no unit");
    expectSiteFailure("{\"unit\": \x1B}", "\\x1b is no value");
    expectFailure({"\x1B[31m"}, 2, "\"\\x1b[31m\" is no command");
    expectFailure({"plane", at("\x1B[31m.json")}, 2, "\\x1b[31m.json\": there is no such file");
}

namespace {

class ProgramWithOwnTemplate : public ProgramErrors {
protected:
    void expectFailureOfBoth(const std::string& words) {
        for (const char* command : {"3d", "2d"})
            expectFailure({command, at("SITE.json"), at("out.dxf")}, 1, words, m_setting);
    }

    // The template that the program was built with.
    static fs::path wholeTemplate() {
        return pathFromUtf8(RASTERPLAN_EXE).parent_path() / "PrepImageAbschnitte_2010.template";
    }

    ProgramCopy m_copy;
    const ProgramSetting m_setting = m_copy.setting();
    const fs::path m_template = m_copy.templateFile();
};

} // namespace

TEST_F(ProgramWithOwnTemplate, MissingTemplate) {
    expectFailureOfBoth(
        "the file \"PrepImageAbschnitte_2010.template\" is missing beside the RasterPlanWriter "
        "library or cannot be read; install the program again");
}

TEST_F(ProgramWithOwnTemplate, DamagedTemplate) {
    for (const std::string& text :
         {std::string("0\nSECTION\n#UNKNOWN#\n0\nEOF\n"), std::string(600, 'x') + "\n0\nEOF\n"}) {
        writeFile(m_template, text);
        expectFailureOfBoth(
            "the drawing could not be completed, because the file "
            "\"PrepImageAbschnitte_2010.template\" beside the RasterPlanWriter library is damaged");
    }
}

TEST_F(ProgramWithOwnTemplate, CutTemplateYieldsNoDrawing) {
    for (const char* text : {"", "0\nSECTION\n", "0\nEO"}) {
        writeFile(m_template, text);
        expectFailureOfBoth("the drawing came out incomplete and was discarded");
    }
}

TEST_F(ProgramWithOwnTemplate, WholeTemplateWorksFromThere) {
    writeFile(m_template, "999\r\nour own\r\n" + readBytes(wholeTemplate()));
    const ProgramResult result = runProgram({"3d", at("SITE.json"), at("new.dxf")}, m_setting);
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(readBytes(m_folder / "new.dxf").substr(0, 14), "999\r\nour own\r\n");
}

TEST_F(ProgramWithOwnTemplate, TemplateWithoutAPlaceForTheImagesYieldsNoDrawing) {
    std::string withoutEntities = readBytes(wholeTemplate());
    const std::string placeholder = "#VEXO_ENTITY_IMAGE#";
    ASSERT_NE(withoutEntities.find(placeholder), std::string::npos);
    withoutEntities.replace(withoutEntities.find(placeholder), placeholder.size(), "999\r\nnothing");
    for (const std::string& text : {std::string("0\r\nEOF\r\n"), withoutEntities}) {
        writeFile(m_template, text);
        expectFailureOfBoth("the images did not come into the drawing, which was discarded, because the file "
                            "\"PrepImageAbschnitte_2010.template\"");
    }
}

TEST_F(ProgramWithOwnTemplate, OutputThatWouldReplaceTheTemplate) {
    const std::string text = readBytes(wholeTemplate());
    writeFile(m_template, text);
    const std::string words =
        "this is the template of all drawings, which the drawing would replace; name another";
    expectFailure({"3d", at("SITE.json"), utf8FromPath(m_template)}, 2, words, m_setting);
    fs::create_hard_link(m_template, m_folder / "other name.dxf");
    expectFailure({"2d", at("SITE.json"), at("other name.dxf")}, 2, words, m_setting);
#ifndef _WIN32
    fs::create_symlink(m_template, m_folder / "link.dxf");
    expectFailure({"3d", at("SITE.json"), at("link.dxf")}, 2, words, m_setting);
#endif
    EXPECT_EQ(readBytes(m_template), text);
}

#ifndef _WIN32

TEST_F(ProgramErrors, FullDisk) {
    // a file may grow to four blocks only; the library cannot notice
    expectFailure({"3d", at("SITE.json"), at("out.dxf")}, 1,
                  '"' + at("out.dxf") +
                      "\": the drawing came out incomplete and was discarded; the disk is probably full",
                  afterShell("trap '' XFSZ; ulimit -f 4; "));
}

TEST_F(ProgramErrors, LimitOfFileSizesThatEndsOtherPrograms) {
    expectFailure({"3d", at("SITE.json"), at("out.dxf")}, 1, "the drawing came out incomplete",
                  afterShell("ulimit -f 4; "));
}

TEST_F(ProgramErrors, PictureThatCannotBeCollected) {
    fs::create_directory(m_folder / "plan");
    writeFile(m_folder / "plan/out.dxf", "good drawing");
    writeFile(m_folder / "a.png", std::string(40000, 'a'));
    const ProgramResult result =
        runProgram({"3d", at("SITE.json"), at("plan/out.dxf"), "--collect"}, afterShell("ulimit -f 4; "));
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.err.find("the picture cannot be copied to"), std::string::npos) << result.err;
    EXPECT_EQ(readBytes(m_folder / "plan/out.dxf"), "good drawing");
    EXPECT_EQ(std::distance(fs::directory_iterator(m_folder / "plan"), fs::directory_iterator()), 1);
}

TEST_F(ProgramErrors, FolderWhoseNameBreaksLines) {
    const std::string folder = at("a\nb");
    fs::create_directory(folder);
    fs::copy_file(m_folder / "SITE.json", folder + "/SITE.json");
    for (const char* form : {"absolute", "relative"}) {
        expectFailure(
            {"3d", folder + "/SITE.json", at("out.dxf"), "--paths", form}, 2,
            "a\\nb/a.png\" holds a control character, which would break the drawing's lines; rename");
    }
    const ProgramResult result =
        runProgram({"3d", folder + "/SITE.json", folder + "/out.dxf", "--paths", "as-given"});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.out.find(at("a\\nb/out.dxf: 1 image, ")), 0U) << result.out;
}

TEST_F(ProgramErrors, NoFileCanBeOpenedAnyMore) {
#ifdef RASTERPLAN_SANITIZED
    GTEST_SKIP() << "sanitizers open files of their own";
#endif
    // The template is the first file that is open beside another one; nothing else may be, whoever starts us.
    expectFailure({"3d", at("SITE.json"), at("out.dxf")}, 1, "because too many are open",
                  afterShell("sh -c 'exec 3>&-; ulimit -n 4; exec \"$0\" \"$@\"' "));
}

namespace {

// The program as a user whom permissions bind. It is a copy, because that user may have no way to the build
// folder.
class ProgramWithoutPrivileges : public ProgramWithOwnTemplate {
protected:
    ProgramWithoutPrivileges() {
        m_userSetting.shellBefore += rasterplan::test::OrdinaryUser::shellPrefix();
        fs::copy_file(wholeTemplate(), m_template);
    }

    ProgramSetting m_userSetting = m_setting;
    static constexpr fs::perms m_readOnly =
        fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read | fs::perms::others_exec;
};

} // namespace

TEST_F(ProgramWithoutPrivileges, FolderInWhichNothingCanBeCreated) {
    fs::create_directory(m_folder / "closed");
    fs::permissions(m_folder / "closed", m_readOnly);
    expectFailure({"3d", at("SITE.json"), at("closed/out.dxf")}, 1,
                  '"' + at("closed/out.dxf") +
                      "\": no file can be created in the output folder; check that you may write there",
                  m_userSetting);
}

TEST_F(ProgramWithoutPrivileges, PictureThatCannotBeOpened) {
    fs::permissions(m_folder / "a.png", fs::perms::none);
    fs::create_directory(m_folder / "open");
    fs::permissions(m_folder / "open", fs::perms::all);
    const ProgramResult result = runProgram({"3d", at("SITE.json"), at("open/out.dxf")}, m_userSetting);
    EXPECT_EQ(result.status, 0);
    EXPECT_NE(
        result.err.find('"' + at("a.png") +
                        "\": the file cannot be opened, so neither its pixel count nor whether it is whole "
                        "was checked; check its permissions"),
        std::string::npos)
        << result.err;
}

TEST_F(ProgramWithoutPrivileges, FileThatCannotBeWritten) {
    fs::permissions(m_folder / "out.dxf", m_readOnly);
    expectFailure({"3d", at("SITE.json"), at("out.dxf")}, 1,
                  "the file exists and cannot be written; take away", m_userSetting);
}

TEST_F(ProgramErrors, OutputOnADevice) {
    expectFailure({"3d", at("SITE.json"), "/dev/null"}, 1, "this is a device or a pipe");
}

TEST_F(ProgramErrors, ResultThatCannotBePrinted) {
    if (!fs::exists("/dev/full"))
        GTEST_SKIP() << "this system has no device that is always full";
    ProgramSetting setting;
    setting.output = "/dev/full";
    expectFailure({"plane", at("SITE.json")}, 1, "the result could not be printed", setting);
    expectFailure({"--help"}, 1, "the result could not be printed", setting);
    expectFailure({"3d", at("SITE.json"), at("out.dxf")}, 1, "the result could not be printed", setting);
}

TEST_F(ProgramErrors, ClosedStandardFiles) {
    for (const char* command : {"3d", "2d"}) {
        const ProgramResult result = runProgram({command, at("SITE.json"), at("out.dxf")}, closing(">&-"));
        EXPECT_EQ(result.status, 1);
        EXPECT_NE(result.err.find("the result could not be printed"), std::string::npos) << result.err;
        EXPECT_EQ(readBytes(m_folder / "out.dxf"), "good drawing");
    }
    // What is said goes nowhere, above all not into a file that took the closed one's number.
    writeFile(m_folder / "SITE.json", siteText({imageText("missing.png")}));
    const ProgramResult result = runProgram({"3d", at("SITE.json"), at("new.dxf")}, closing("<&- 2>&-"));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(readBytes(m_folder / "new.dxf").find("rasterplan"), std::string::npos);
}

TEST_F(ProgramErrors, FolderWhoseNameIsNoText) {
    const std::string folder = utf8FromPath(m_folder.path()) + "/b\xFF";
    fs::create_directory(folder);
    expectFailure({"3d", at("SITE.json"), folder + "/out.dxf"}, 2, "is not valid Unicode text");
    fs::copy_file(m_folder / "SITE.json", folder + "/SITE.json");
    expectFailure({"3d", folder + "/SITE.json", at("out.dxf")}, 2, "is not valid Unicode text");
}

#endif

} // namespace rasterplan_tool
