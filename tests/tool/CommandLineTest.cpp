#include "CommandLine.h"

#include "base/Failure.h"
#include "base/PathText.h"

#include <gtest/gtest.h>

namespace rasterplan_tool {
namespace {

using Arguments = std::vector<std::string>;

template <typename Wanted>
Wanted parsed(const Arguments& arguments) {
    const CommandLineResult result = parseCommandLine(arguments);
    EXPECT_EQ(result.answer, "");
    return std::get<Wanted>(result.command.value());
}

WriteDrawing parsedWrite(const Arguments& arguments) {
    return parsed<WriteDrawing>(arguments);
}

std::string failureOf(const Arguments& arguments) {
    try {
        parseCommandLine(arguments);
    } catch (const BadInput& failure) {
        return failure.what();
    }
    return "no failure";
}

Arguments with2d(const Arguments& options) {
    Arguments arguments{"2d", "SITE.json", "out.dxf"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return arguments;
}

} // namespace

TEST(CommandLine, Write3d) {
    const WriteDrawing line = parsedWrite({"3d", "a/SÜTE.json", "out 1.dxf"});
    EXPECT_FALSE(line.flattened);
    EXPECT_EQ(utf8FromPath(line.site), "a/SÜTE.json");
    EXPECT_EQ(utf8FromPath(line.output), "out 1.dxf");
    EXPECT_EQ(line.pathForm, PathForm::Relative);
}

TEST(CommandLine, PathForms) {
    EXPECT_EQ(parsedWrite({"3d", "s", "o", "--paths", "absolute"}).pathForm, PathForm::Absolute);
    EXPECT_EQ(parsedWrite({"3d", "s", "o", "--paths=relative"}).pathForm, PathForm::Relative);
    EXPECT_EQ(parsedWrite({"2d", "--paths", "as-given", "s", "o"}).pathForm, PathForm::AsGiven);
    EXPECT_EQ(parsedWrite({"2d", "s", "o", "--collect"}).pathForm, PathForm::Collected);
    EXPECT_NE(failureOf({"3d", "s", "o", "--collect", "--paths", "relative"}).find("excludes"),
              std::string::npos);
}

TEST(CommandLine, Warnings) {
    for (const Arguments& command :
         {Arguments{"3d", "s", "o"}, Arguments{"2d", "s", "o"}, Arguments{"plane", "s"},
          Arguments{"corners", "s"}, Arguments{"view", "d"}}) {
        const auto with = [&](const Arguments& options) {
            Arguments arguments = command;
            arguments.insert(arguments.end(), options.begin(), options.end());
            return parseCommandLine(arguments);
        };
        EXPECT_EQ(with({}).verbosity, Verbosity::Normal);
        EXPECT_FALSE(with({}).isStrict);
        EXPECT_EQ(with({"--quiet"}).verbosity, Verbosity::Quiet);
        EXPECT_EQ(with({"--verbose", "--strict"}).verbosity, Verbosity::Verbose);
        EXPECT_TRUE(with({"--quiet", "--strict"}).isStrict);
    }
    EXPECT_EQ(failureOf(with2d({"--quiet", "--verbose"})),
              "--quiet and --verbose contradict each other; give one of them");
}

TEST(CommandLine, Write2dInTheProposedPlane) {
    const WriteDrawing line = parsedWrite({"2d", "s", "o"});
    EXPECT_TRUE(line.flattened);
    EXPECT_FALSE(line.plane.has_value());
    EXPECT_FALSE(line.angleTolerance.has_value());
    EXPECT_FALSE(line.distanceTolerance.has_value());
}

TEST(CommandLine, Write2dInAPlaneOfTheUsersOwn) {
    const WriteDrawing line =
        parsedWrite(with2d({"--origin", "-1.5,2, 3e2", "--x-axis=-0.5,0.5,0", "--y-axis", "0,0,1",
                            "--angle-tolerance", "0.25", "--distance-tolerance", "0"}));
    ASSERT_TRUE(line.plane.has_value());
    EXPECT_EQ(line.plane->origin.x, -1.5);
    EXPECT_EQ(line.plane->origin.z, 300.0);
    EXPECT_EQ(line.plane->xAxis.x, -0.5);
    EXPECT_EQ(line.plane->yAxis.z, 1.0);
    EXPECT_EQ(line.angleTolerance, 0.25);
    EXPECT_EQ(line.distanceTolerance, 0.0);
}

TEST(CommandLine, ViewDrawing) {
    const ViewDrawing line = parsed<ViewDrawing>({"view", "a.dxf"});
    EXPECT_EQ(line.drawing, "a.dxf");
    EXPECT_EQ(line.page, "");
    EXPECT_FALSE(line.embed);
    EXPECT_EQ(parsed<ViewDrawing>({"view", "a.dxf", "b.html", "--embed"}).page, "b.html");
    EXPECT_TRUE(parsed<ViewDrawing>({"view", "--embed", "a.dxf"}).embed);
    EXPECT_FALSE(parsedWrite({"3d", "s", "o"}).view);
    EXPECT_TRUE(parsedWrite({"2d", "s", "o", "--view"}).view);
}

TEST(CommandLine, ShowPlane) {
    EXPECT_FALSE(parsed<ShowPlane>({"plane", "s"}).json);
    EXPECT_TRUE(parsed<ShowPlane>({"plane", "s", "--json"}).json);
}

TEST(CommandLine, CheckDrawing) {
    EXPECT_EQ(utf8FromPath(parsed<CheckDrawing>({"check", "d"}).drawing), "d");
    EXPECT_FALSE(parsed<CheckDrawing>({"check", "d"}).json);
    EXPECT_TRUE(parsed<CheckDrawing>({"check", "d", "--json"}).json);
}

TEST(CommandLine, ShowCorners) {
    EXPECT_EQ(utf8FromPath(parsed<ShowCorners>({"corners", "s"}).site), "s");
}

TEST(CommandLine, PathsMayBeginWithAnything) {
    EXPECT_EQ(utf8FromPath(parsedWrite({"3d", "/x/s", "/y/o"}).site), "/x/s");
    EXPECT_EQ(utf8FromPath(parsedWrite({"3d", "--", "-s", "-o"}).site), "-s");
}

TEST(CommandLine, HelpAndVersionAreAnswers) {
    for (const Arguments& arguments :
         {Arguments{"--help"}, Arguments{"-h"}, Arguments{"help"}, Arguments{"3d", "--help"},
          Arguments{"2d", "-h"}, Arguments{"help", "2d"}}) {
        const CommandLineResult result = parseCommandLine(arguments);
        EXPECT_FALSE(result.command.has_value());
        EXPECT_NE(result.answer.find("Usage: rasterplan"), std::string::npos);
    }
    EXPECT_NE(parseCommandLine({"--help"}).answer.find("\"pixelsPerUnit\": 200.0"), std::string::npos);
    EXPECT_EQ(parseCommandLine({"help", "2d"}).answer, parseCommandLine({"2d", "--help"}).answer);
    EXPECT_EQ(parseCommandLine({"--version"}).answer.find("rasterplan "), 0U);
    EXPECT_EQ(parseCommandLine({"-V"}).answer, parseCommandLine({"--version"}).answer);
}

TEST(CommandLine, LinesOfTheHelpFitATerminal) {
    for (const Arguments& arguments : {Arguments{"--help"}, Arguments{"3d", "--help"},
                                       Arguments{"2d", "--help"}, Arguments{"plane", "--help"}}) {
        const std::string answer = parseCommandLine(arguments).answer;
        for (std::size_t start = 0; start < answer.size();) {
            const std::size_t end = std::min(answer.find('\n', start), answer.size());
            EXPECT_LE(end - start, 88U) << answer.substr(start, end - start);
            start = end + 1;
        }
    }
}

TEST(CommandLine, MistakesAreSaidInWordsWithTheWayToTheHelp) {
    const struct {
        Arguments arguments;
        const char* words;
    } cases[] = {
        {{}, "no command is given; the commands are 3d, 2d, plane, corners, view and check"},
        {{"4d", "s", "o"}, "\"4d\" is no command; the commands are 3d, 2d, plane, corners, view and check"},
        {{"3d"}, "SITE.json is required"},
        {{"3d", "s"}, "OUT.dxf is required"},
        {{"3d", "s", "o", "x"}, "x"},
        {{"3d", "s", "o", "--origin", "0,0,0"}, "--origin is no option of 3d but of 2d;"},
        {{"3d", "s", "o", "--origin=0,0,0"}, "--origin is no option of 3d but of 2d;"},
        {{"plane", "s", "--pahts=relative"}, "--pahts is no option of plane;"},
        {{"3d", "s", "o", "--pahts", "relative"}, "--pahts is no option of 3d (did you mean \"--paths\"?);"},
        {{"plane"}, "SITE.json is required"},
        {{"plane", "s", "o"}, "o"},
        {{"corners"}, "SITE.json is required"},
        {{"3d", "s", "o", "--paths", "some"}, "--paths: some not in {relative,absolute,as-given}"},
        {{"3d", "s", "o", "--paths"}, "--paths"},
        {{"3d", "--", "--s"}, "OUT.dxf is required"},
    };
    for (const auto& wrong : cases) {
        const std::string failure = failureOf(wrong.arguments);
        EXPECT_NE(failure.find(wrong.words), std::string::npos) << failure;
        EXPECT_NE(failure.find("; \"rasterplan --help\" shows the usage"), std::string::npos) << failure;
    }
}

TEST(CommandLine, StandardStreamsAreNoFiles) {
    EXPECT_EQ(failureOf({"3d", "s", "-"}),
              "- is standard output, but a drawing is put in place when it is complete; name a file, such as "
              "site.dxf");
    for (const Arguments& arguments :
         {Arguments{"3d", "-", "o"}, Arguments{"2d", "-", "o"}, Arguments{"plane", "-"},
          Arguments{"corners", "-"}, Arguments{"check", "-"}, Arguments{"view", "-"}}) {
        EXPECT_EQ(failureOf(arguments),
                  "- is standard input, which is not read; name a file, or ./- if it is called so");
    }
    EXPECT_EQ(parsedWrite({"3d", "./-", "./-"}).output, "./-");
}

TEST(CommandLine, OutputThatIsADwgIsAMistake) {
    EXPECT_EQ(failureOf({"3d", "s", "a/plan.DWG"}),
              "\"a/plan.DWG\": a DWG is no DXF, and DXF is what is written; name \"a/plan.dxf\", which CAD "
              "programs open and save as DWG");
}

TEST(CommandLine, EmptyOutputIsAMistake) {
    EXPECT_EQ(failureOf({"3d", "s", ""}), "the output path is empty; name a file, such as site.dxf");
    EXPECT_EQ(failureOf({"2d", "s", ""}), "the output path is empty; name a file, such as site.dxf");
}

TEST(CommandLine, PlaneNeedsAllThreeOptions) {
    const Arguments options[] = {{"--origin=0,0,0"}, {"--x-axis=1,0,0"}, {"--y-axis=0,1,0"}};
    for (int set = 1; set < 7; ++set) {
        Arguments arguments = with2d({});
        for (std::size_t i = 0; i < 3; ++i)
            if ((set >> i & 1) != 0)
                arguments.push_back(options[i][0]);
        EXPECT_EQ(failureOf(arguments),
                  "a plane needs --origin, --x-axis and --y-axis together; give all three, or "
                  "none for the proposed plane")
            << set;
    }
}

TEST(CommandLine, TriplesAreThreeNumbers) {
    for (const char* text : {"1,2", "1,2,3,4", "1,2,", ",1,2", "1 2 3", "1,2,x", "1,2,nan", "1,2,inf",
                             "1,2,1e400", "1,2,1e19", "1;2;3", "1,,3"}) {
        EXPECT_EQ(failureOf(with2d({"--x-axis", "1,0,0", "--y-axis", "0,1,0", "--origin", text}))
                      .find("--origin: \"" + std::string(text) + "\" is not x,y,z; write three numbers"),
                  0U)
            << text;
    }
}

TEST(CommandLine, AxesMustSpanAPlane) {
    EXPECT_EQ(
        failureOf(with2d({"--origin", "0,0,0", "--x-axis", "1,1,1", "--y-axis", "-2,-2,-2"})),
        "--x-axis 1,1,1 and --y-axis -2,-2,-2 span no plane: one of them is zero, or they are parallel; give "
        "two directions at a right angle");
    EXPECT_NE(
        failureOf(with2d({"--origin", "0,0,0", "--x-axis", "0,0,0", "--y-axis", "0,1,0"})).find("no plane"),
        std::string::npos);
}

TEST(CommandLine, TolerancesAreNumbersNotBelowZero) {
    for (const char* text : {"x", "-1", "1,5", "nan", "inf"}) {
        EXPECT_EQ(failureOf(with2d({"--angle-tolerance", text})),
                  "--angle-tolerance: \"" + std::string(text) +
                      "\" is not a number that fits; write 0 or more, such as 0.5");
        EXPECT_NE(failureOf(with2d({"--distance-tolerance", text})).find("--distance-tolerance: \""),
                  std::string::npos);
    }
}

} // namespace rasterplan_tool
