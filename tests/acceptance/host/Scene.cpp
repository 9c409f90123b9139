#include "host/Scene.h"

#include "host/HostLocale.h"
#include "host/Report.h"
#include "support/TestFolder.h"
#include "support/WideText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <exception>
#include <optional>
#include <ostream>
#include <stdexcept>

namespace rasterplan::test {
namespace {

// The words of one line, taken off one by one.
class Words {
public:
    explicit Words(std::string_view line)
        : m_rest(line) {
        skipBlanks();
    }

    std::string_view rest() const { return m_rest; }

    std::string_view next() {
        const std::string_view word = m_rest.substr(0, m_rest.find(' '));
        m_rest.remove_prefix(word.size());
        skipBlanks();
        return word;
    }

    template <typename Number>
    Number nextNumber() {
        const std::string_view word = next();
        Number number{};
        const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
        if (error != std::errc() || end != word.data() + word.size())
            throw std::runtime_error("no number: \"" + std::string(word) + '"');
        return number;
    }

    TripleDouble nextTriple() {
        const double x = nextNumber<double>();
        const double y = nextNumber<double>();
        return {x, y, nextNumber<double>()};
    }

private:
    void skipBlanks() { m_rest.remove_prefix(std::min(m_rest.find_first_not_of(' '), m_rest.size())); }

    std::string_view m_rest;
};

class Player {
public:
    Player(const std::filesystem::path& defaultOutput, std::ostream& log)
        : m_defaultOutput(defaultOutput)
        , m_log(log) {}

    void play(std::string_view line) {
        Words words(line);
        const std::string_view command = words.next();
        if (command.empty() || command.starts_with('#'))
            return;
        if (command == "drawing")
            startDrawing(words.rest());
        else if (command == "default-drawing")
            startDefaultDrawing();
        else if (command == "image")
            addImage(words);
        else if (command == "plane")
            choosePlane(words);
        else if (command == "write3d")
            write("write3d", [&] { return facade().create3DDxf(); });
        else if (command == "write2d")
            write("write2d", [&] { return facade().create2DDxf(m_origin, m_xAxis, m_yAxis); });
        else if (command == "report")
            m_reports = true;
        else if (command == "say")
            m_log << words.rest() << '\n';
        else if (command == "locale")
            setHostLocale(std::string(words.rest()));
        else if (command == "chdir")
            std::filesystem::current_path(pathFromUtf8(words.rest()));
        else
            throw std::runtime_error("no command: \"" + std::string(command) + '"');
    }

private:
    RasterPlanWriter& facade() {
        if (!m_facade)
            throw std::runtime_error("no drawing was begun");
        return *m_facade;
    }

    void startDrawing(std::string_view path) {
        const std::string output = path.empty() ? utf8FromPath(m_defaultOutput) : std::string(path);
        m_output = pathFromUtf8(output);
        m_facade.emplace(wideTextOf(output).c_str());
        forgetOldDrawing();
    }

    void startDefaultDrawing() {
        m_output = "test.dxf";
        m_facade.emplace();
        forgetOldDrawing();
    }

    // A report must not show what an earlier facade wrote.
    void forgetOldDrawing() const {
        if (m_reports)
            std::filesystem::remove(m_output);
    }

    void addImage(Words words) {
        ImageParam image;
        image.setDrawingUnit(static_cast<DrawingUnit>(words.nextNumber<int>()));
        image.setNumberPixelPerUnit(words.nextNumber<double>());
        const TripleDouble leftTop = words.nextTriple();
        const TripleDouble leftBottom = words.nextTriple();
        const TripleDouble rightBottom = words.nextTriple();
        if (!words.rest().empty())
            image.setImagePath(wideTextOf(words.rest()).c_str());
        answer("image", [&] {
            image.setImageCorners(leftTop, leftBottom, rightBottom);
            if (m_reports)
                reportImage(m_log, image);
            return facade().add(image);
        });
    }

    void choosePlane(Words words) {
        if (words.rest() == "proposed") {
            answer("plane", [&] {
                return facade().calcMiddledImagePlaneReferenceCoordSystem3D(m_origin, m_xAxis, m_yAxis);
            });
            if (m_reports)
                reportNumbers(m_log, "plane",
                              {m_origin.x, m_origin.y, m_origin.z, m_xAxis.x, m_xAxis.y, m_xAxis.z, m_yAxis.x,
                               m_yAxis.y, m_yAxis.z});
        } else {
            m_origin = words.nextTriple();
            m_xAxis = words.nextTriple();
            m_yAxis = words.nextTriple();
        }
    }

    template <typename Operation>
    void write(std::string_view command, const Operation& operation) {
        answer(command, operation);
        if (m_reports)
            reportFile(m_log, m_output);
    }

    template <typename Operation>
    void answer(std::string_view command, const Operation& operation) {
        std::string result;
        try {
            result = nameOf(operation());
        } catch (const std::exception& e) {
            result = std::string("exception ") + e.what();
        }
        m_log << command << ' ' << result << '\n';
    }

    const std::filesystem::path& m_defaultOutput;
    std::ostream& m_log;
    std::filesystem::path m_output;
    bool m_reports = false;
    std::optional<RasterPlanWriter> m_facade;
    TripleDouble m_origin;
    TripleDouble m_xAxis{1.0, 0.0, 0.0};
    TripleDouble m_yAxis{0.0, 1.0, 0.0};
};

} // namespace

void playScene(std::string_view scene, const std::filesystem::path& defaultOutput, std::ostream& log) {
    Player player(defaultOutput, log);
    for (int number = 1; !scene.empty(); ++number) {
        std::string_view line = scene.substr(0, scene.find('\n'));
        scene.remove_prefix(std::min(line.size() + 1, scene.size()));
        line = line.substr(0, line.find_last_not_of(" \r") + 1);
        try {
            player.play(line);
        } catch (const std::runtime_error& e) {
            throw std::runtime_error("line " + std::to_string(number) + ": " + e.what());
        }
    }
}

std::string nameOf(RasterPlanWriter::ErrorEnum result) {
    constexpr std::array names{
        "Success",    "NoImage",          "InvalidGeometry", "CannotOpenOutput", "CannotOpenTemplate",
        "DxfFailure", "UnexpectedFailure"};
    const auto index = static_cast<std::size_t>(result);
    return index < names.size() ? names[index] : std::to_string(static_cast<int>(result));
}

} // namespace rasterplan::test
