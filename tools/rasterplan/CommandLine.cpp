#include "CommandLine.h"

#include "base/Failure.h"
#include "base/LetterCase.h"
#include "base/NumberText.h"
#include "base/PathText.h"
#include "base/Suggestion.h"
#include "base/VisibleText.h"
#include "site/UnitNames.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <sstream>
#include <string_view>

namespace rasterplan_tool {
namespace {

// The names of the units in lines that fit a terminal.
std::string unitHelp() {
    constexpr std::size_t lineLength = 80;
    std::string text = "  ";
    std::size_t lineStart = 0;
    const std::string names = allUnitNames();
    std::string_view rest = names;
    while (!rest.empty()) {
        const std::size_t length = std::min(rest.find(' '), rest.size() - 1) + 1;
        if (text.size() + length - lineStart > lineLength) {
            text.back() = '\n';
            lineStart = text.size();
            text += "  ";
        }
        text += rest.substr(0, length);
        rest.remove_prefix(length);
    }
    return text;
}

std::string footer() {
    return R"(SITE.json (UTF-8):
  {"unit": "Meters",
   "images": [{"path": "south.png",
               "leftTop": [x, y, z], "leftBottom": [x, y, z],
               "rightBottom": [x, y, z], "pixelsPerUnit": 200.0}]}
An image may also be placed by "leftBottom", two directions "right" and "up", and
"pixelsPerUnit"; or by its world file or GeoTIFF tags, in the ground plane at an
"elevation" or in a "plane": {"origin": .., "xAxis": .., "yAxis": ..}.
Paths are relative to SITE.json. "unit" may be left out (then Meters) and may
stand in an image too, which is converted. Short forms (mm, m, in, ft) count as
well. The units:
)" + unitHelp() +
           R"(

Exit status: 0 done, perhaps with warnings; 1 the drawing could not be written,
check found something wrong, or --strict met a warning; 2 wrong command line,
SITE.json or DRAWING.dxf.
A run that fails or is interrupted leaves an existing OUT.dxf as it was.)";
}

// The texts of the options as the user typed them.
struct OptionTexts {
    std::string site;
    std::string output;
    std::string drawing;
    std::string pathForm = "relative";
    bool collect = false;
    std::string origin;
    std::string xAxis;
    std::string yAxis;
    std::string angleTolerance;
    std::string distanceTolerance;
    bool json = false;
    std::string page;
    bool embed = false;
    bool view = false;
    bool quiet = false;
    bool verbose = false;
    bool strict = false;
};

struct PathFormName {
    PathForm form;
    std::string_view name;
};

constexpr std::array<PathFormName, 3> pathForms{{
    {PathForm::Relative, "relative"},
    {PathForm::Absolute, "absolute"},
    {PathForm::AsGiven, "as-given"},
}};

std::vector<std::string> pathFormNames() {
    std::vector<std::string> names;
    names.reserve(pathForms.size());
    for (const PathFormName& row : pathForms)
        names.emplace_back(row.name);
    return names;
}

PathForm pathFormOf(std::string_view name) {
    return std::find_if(pathForms.begin(), pathForms.end(),
                        [name](const PathFormName& row) { return row.name == name; })
        ->form;
}

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

TripleDouble parseTriple(std::string_view option, std::string_view text) {
    std::array<double, 3> numbers{};
    std::string_view rest = text;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const std::size_t comma = rest.find(',');
        const bool last = i + 1 == numbers.size();
        const std::optional<double> number = parseNumber(trimmed(rest.substr(0, comma)));
        if (!number || std::abs(*number) > largestCoordinate || last != (comma == std::string_view::npos)) {
            throw BadInput(std::string(option) + ": \"" + visible(text) +
                           "\" is not x,y,z; write three numbers with a point and commas between, such as "
                           "1.5,0,-2");
        }
        numbers[i] = *number;
        rest.remove_prefix(last ? rest.size() : comma + 1);
    }
    return {numbers[0], numbers[1], numbers[2]};
}

std::optional<double> parseTolerance(std::string_view option, const std::string& text) {
    if (text.empty())
        return std::nullopt;
    const std::optional<double> number = parseNumber(text);
    if (!number || *number < 0.0) {
        throw BadInput(std::string(option) + ": \"" + visible(text) +
                       "\" is not a number that fits; write 0 or more, such as 0.5");
    }
    return number;
}

std::optional<Plane> parsePlane(const OptionTexts& texts) {
    if (texts.origin.empty() && texts.xAxis.empty() && texts.yAxis.empty())
        return std::nullopt;
    if (texts.origin.empty() || texts.xAxis.empty() || texts.yAxis.empty()) {
        throw BadInput(
            "a plane needs --origin, --x-axis and --y-axis together; give all three, or none for the "
            "proposed plane");
    }
    const Plane plane{parseTriple("--origin", texts.origin), parseTriple("--x-axis", texts.xAxis),
                      parseTriple("--y-axis", texts.yAxis)};
    if (!spansPlane(plane)) {
        throw BadInput("--x-axis " + texts.xAxis + " and --y-axis " + texts.yAxis +
                       " span no plane: one of them is zero, or they are parallel; give two directions at a "
                       "right angle");
    }
    return plane;
}

void addSite(CLI::App& command, OptionTexts& texts) {
    command.add_option("SITE.json", texts.site, "The images and their places")->required();
}

void addOutput(CLI::App& command, OptionTexts& texts) {
    command.add_option("OUT.dxf", texts.output, "The drawing to write")->required();
    CLI::Option* const paths =
        command
            .add_option("--paths", texts.pathForm,
                        "How the drawing names its pictures:\nrelative (to OUT.dxf's folder, the default),\n"
                        "absolute or as-given (the text of SITE.json)")
            ->type_name("FORM")
            ->check(CLI::IsMember(pathFormNames()).description(""));
    command
        .add_flag("--collect", texts.collect,
                  "Copy the pictures beside OUT.dxf, which names them\nby file name alone")
        ->excludes(paths);
    command.add_flag("--view", texts.view,
                     "Write the page that shows the drawing too, beside\nit, as view does");
}

void addPlane(CLI::App& command, OptionTexts& texts) {
    command
        .add_option("--origin", texts.origin,
                    "A point of the plane; all three or none,\nthen the proposed plane")
        ->type_name("X,Y,Z");
    command.add_option("--x-axis", texts.xAxis, "The direction that becomes the drawing's x")
        ->type_name("X,Y,Z");
    command.add_option("--y-axis", texts.yAxis, "The direction that becomes the drawing's y")
        ->type_name("X,Y,Z");
    command
        .add_option("--angle-tolerance", texts.angleTolerance,
                    "Warn of images turned further than this\nout of the plane or in it (default 1)")
        ->type_name("DEGREES");
    command
        .add_option("--distance-tolerance", texts.distanceTolerance,
                    "Warn of images further than this from the\nplane, in drawing units (default 0.1 m)")
        ->type_name("LENGTH");
}

void addWarnings(CLI::App& command, OptionTexts& texts) {
    command.add_flag("--quiet", texts.quiet, "Print no warnings and no notes");
    command.add_flag("--verbose", texts.verbose,
                     "Print every single warning, where otherwise one line\nstands for many alike");
    command.add_flag("--strict", texts.strict,
                     "Fail (exit status 1) where there is a warning; nothing\nis written then");
}

Verbosity verbosityOf(const OptionTexts& texts) {
    if (texts.quiet && texts.verbose)
        throw BadInput("--quiet and --verbose contradict each other; give one of them");
    if (texts.quiet)
        return Verbosity::Quiet;
    return texts.verbose ? Verbosity::Verbose : Verbosity::Normal;
}

struct Subcommand {
    CLI::App* app;
    Command (*command)(const OptionTexts& texts);
};

CLI::App* addWrite3d(CLI::App& app, OptionTexts& texts) {
    CLI::App* const command = app.add_subcommand("3d", "Write every image where it lies in space");
    addSite(*command, texts);
    addOutput(*command, texts);
    addWarnings(*command, texts);
    return command;
}

CLI::App* addWrite2d(CLI::App& app, OptionTexts& texts) {
    CLI::App* const command = app.add_subcommand("2d", "Write all images flattened into one plane");
    addSite(*command, texts);
    addOutput(*command, texts);
    addPlane(*command, texts);
    addWarnings(*command, texts);
    return command;
}

CLI::App* addShowPlane(CLI::App& app, OptionTexts& texts) {
    CLI::App* const command =
        app.add_subcommand("plane", "Propose a plane and show how the images lie to it");
    addSite(*command, texts);
    command->add_flag("--json", texts.json, "As JSON, with numbers that read back exactly");
    addWarnings(*command, texts);
    return command;
}

CLI::App* addCheckDrawing(CLI::App& app, OptionTexts& texts) {
    CLI::App* const command = app.add_subcommand("check", "Say why pictures of a drawing do not show");
    command->add_option("DRAWING.dxf", texts.drawing, "A text DXF of any program")->required();
    command->add_flag("--json", texts.json, "As JSON");
    return command;
}

CLI::App* addShowCorners(CLI::App& app, OptionTexts& texts) {
    CLI::App* const command =
        app.add_subcommand("corners", "Print SITE.json with every image as its three corners");
    addSite(*command, texts);
    addWarnings(*command, texts);
    return command;
}

CLI::App* addView(CLI::App& app, OptionTexts& texts) {
    CLI::App* const command = app.add_subcommand("view", "Write a page that shows a drawing in any browser");
    command->add_option("DRAWING.dxf", texts.drawing, "The drawing to look at, of any program")->required();
    command->add_option("PAGE.html", texts.page, "The page to write (default DRAWING.html)");
    command->add_flag("--embed", texts.embed, "Put the pictures into the page, which can go\nanywhere then");
    addWarnings(*command, texts);
    return command;
}

// The path of a file that is read. Elsewhere - is a stream, from which no path counts.
std::filesystem::path inputPath(const std::string& text) {
    if (text == "-")
        throw BadInput("- is standard input, which is not read; name a file, or ./- if it is called so");
    return pathFromUtf8(text);
}

std::filesystem::path outputPath(const std::string& text) {
    if (text.empty())
        throw BadInput("the output path is empty; name a file, such as site.dxf");
    if (text == "-") {
        throw BadInput(
            "- is standard output, but a drawing is put in place when it is complete; name a file, "
            "such as site.dxf");
    }
    if (inSmallLetters(text).ends_with(".dwg")) {
        const std::string name = visible(text.substr(0, text.size() - 4));
        throw BadInput('"' + name + text.substr(text.size() - 4) +
                       "\": a DWG is no DXF, and DXF is what is written; name \"" + name +
                       ".dxf\", which CAD programs open and save as DWG");
    }
    return pathFromUtf8(text);
}

Command writeDrawing(const OptionTexts& texts) {
    WriteDrawing command;
    command.site = inputPath(texts.site);
    command.output = outputPath(texts.output);
    command.pathForm = texts.collect ? PathForm::Collected : pathFormOf(texts.pathForm);
    command.view = texts.view;
    return command;
}

Command writeDrawingFlattened(const OptionTexts& texts) {
    WriteDrawing command = std::get<WriteDrawing>(writeDrawing(texts));
    command.flattened = true;
    command.plane = parsePlane(texts);
    command.angleTolerance = parseTolerance("--angle-tolerance", texts.angleTolerance);
    command.distanceTolerance = parseTolerance("--distance-tolerance", texts.distanceTolerance);
    return command;
}

Command showPlane(const OptionTexts& texts) {
    return ShowPlane{inputPath(texts.site), texts.json};
}

Command checkDrawing(const OptionTexts& texts) {
    return CheckDrawing{inputPath(texts.drawing), texts.json};
}

Command showCorners(const OptionTexts& texts) {
    return ShowCorners{inputPath(texts.site)};
}

Command viewDrawing(const OptionTexts& texts) {
    return ViewDrawing{inputPath(texts.drawing), pathFromUtf8(texts.page), texts.embed};
}

// "3d, 2d and plane"
std::string namesOf(std::span<const Subcommand> commands) {
    std::string names = commands.front().app->get_name();
    for (const Subcommand& row : commands.subspan(1))
        names += (&row == &commands.back() ? " and " : ", ") + row.app->get_name();
    return names;
}

// "help 2d" asks for the same as "2d --help".
std::vector<std::string> withHelpAsOption(const std::vector<std::string>& arguments) {
    if (arguments.empty() || arguments.front() != "help")
        return arguments;
    std::vector<std::string> others(arguments.begin() + 1, arguments.end());
    others.emplace_back("--help");
    return others;
}

// What is wrong with an option that the given command does not have; an empty text where every one is known.
std::string unknownOptionText(const std::vector<std::string>& arguments, const CLI::App& given,
                              std::span<const Subcommand> commands) {
    for (const std::string& argument : arguments) {
        const std::string option = argument.substr(0, argument.find('='));
        if (option == "--")
            break;
        if (!option.starts_with("--") || given.get_option_no_throw(option) != nullptr)
            continue;
        const std::string beginning = option + " is no option of " + given.get_name();
        const auto owner = std::find_if(commands.begin(), commands.end(), [&option](const Subcommand& row) {
            return row.app->get_option_no_throw(option) != nullptr;
        });
        if (owner != commands.end())
            return beginning + " but of " + owner->app->get_name();
        std::vector<std::string> names;
        for (const CLI::Option* known : given.get_options())
            for (const std::string& name : known->get_lnames())
                names.push_back("--" + name);
        return beginning + suggestionText(option, std::vector<std::string_view>(names.begin(), names.end()));
    }
    return {};
}

// What is wrong with arguments that `error` refuses.
std::string mistakeText(const std::vector<std::string>& arguments, const CLI::App& app,
                        std::span<const Subcommand> commands, const CLI::ParseError& error) {
    const auto given = app.get_subcommands();
    if (given.empty()) {
        return (arguments.empty() ? "no command is given" : '"' + arguments.front() + "\" is no command") +
               "; the commands are " + namesOf(commands);
    }
    const std::string text = unknownOptionText(arguments, *given.front(), commands);
    return text.empty() ? error.what() : text;
}

} // namespace

CommandLineResult parseCommandLine(const std::vector<std::string>& given) {
    const std::vector<std::string> arguments = withHelpAsOption(given);
    OptionTexts texts;
    CLI::App app{"Writes the ortho images that SITE.json lists as one DXF drawing.", "rasterplan"};
    app.allow_windows_style_options(false); // an absolute path may begin with '/'
    app.set_version_flag("-V,--version", "rasterplan " RASTERPLAN_VERSION);

    const std::array<Subcommand, 6> commands{{
        {addWrite3d(app, texts), &writeDrawing},
        {addWrite2d(app, texts), &writeDrawingFlattened},
        {addShowPlane(app, texts), &showPlane},
        {addShowCorners(app, texts), &showCorners},
        {addView(app, texts), &viewDrawing},
        {addCheckDrawing(app, texts), &checkDrawing},
    }};

    app.footer(footer()); // after the commands, which would take it over
    app.require_subcommand(1);

    try {
        app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    } catch (const CLI::ParseError& error) {
        std::ostringstream answer;
        std::ostringstream complaint;
        if (app.exit(error, answer, complaint) == 0)
            return {std::nullopt, answer.str(), Verbosity::Normal, false};
        throw BadInput(visible(mistakeText(arguments, app, commands, error)) +
                       "; \"rasterplan --help\" shows the usage");
    }

    const auto command = std::find_if(commands.begin(), commands.end(),
                                      [](const Subcommand& row) { return row.app->parsed(); });
    return {command->command(texts), {}, verbosityOf(texts), texts.strict};
}

} // namespace rasterplan_tool
