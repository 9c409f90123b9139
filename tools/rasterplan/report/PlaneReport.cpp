#include "report/PlaneReport.h"

#include "base/NumberText.h"
#include "base/Vector.h"
#include "base/VisibleText.h"
#include "site/UnitNames.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <string>

namespace rasterplan_tool {
namespace {

using Row = std::vector<std::string>;

enum class Align { Left, Right };

// Every column is as wide as its longest text. The last one may hold any text and is not padded.
void printTable(std::ostream& out, const std::vector<Align>& columns, const std::vector<Row>& rows) {
    std::vector<std::size_t> widths(columns.size());
    for (const Row& row : rows)
        for (std::size_t i = 0; i < columns.size(); ++i)
            widths[i] = std::max(widths[i], row[i].size());
    for (const Row& row : rows) {
        for (std::size_t i = 0; i < columns.size(); ++i) {
            const bool last = i + 1 == columns.size();
            const std::string padding(widths[i] - row[i].size(), ' ');
            out << (columns[i] == Align::Right ? padding + row[i] : row[i] + (last ? "" : padding))
                << (last ? "\n" : "  ");
        }
    }
}

Row tripleRow(const char* name, const TripleDouble& triple, int digits) {
    return {name, fixedText(triple.x, digits), fixedText(triple.y, digits), fixedText(triple.z, digits)};
}

std::string optionText(const char* name, const TripleDouble& triple) {
    return std::string(name) + '=' + shortestText(triple.x) + ',' + shortestText(triple.y) + ',' +
           shortestText(triple.z);
}

// Of one value only: where memory has run out, the destructor of a list or an object ends the program.
template <typename Value>
std::string json(const Value& value) {
    return nlohmann::json(value).dump();
}

std::string json(const TripleDouble& triple) {
    return '[' + json(triple.x) + ", " + json(triple.y) + ", " + json(triple.z) + ']';
}

// Leaves a list between commas empty where there is nothing to say.
void append(std::string& text, const std::string& more) {
    text += (text.empty() ? "" : ", ") + more;
}

} // namespace

void printPlane(std::ostream& out, const Manifest& manifest, const Plane& plane,
                const std::vector<ImageParam>& images) {
    out << "Reference plane (" << unitName(manifest.unit) << "):\n\n";
    printTable(out, {Align::Left, Align::Right, Align::Right, Align::Right},
               {{"", "x", "y", "z"},
                tripleRow("origin", plane.origin, 6),
                tripleRow("x axis", plane.xAxis, 9),
                tripleRow("y axis", plane.yAxis, 9)});
    out << "\nThe same for rasterplan 2d:\n\n  " << optionText("--origin", plane.origin) << ' '
        << optionText("--x-axis", plane.xAxis) << ' ' << optionText("--y-axis", plane.yAxis)
        << "\n\nDistance of each image's furthest corner from the plane; angle out of the plane and turn in "
           "it, "
           "in degrees:\n\n";
    std::vector<Row> rows{{"image", "distance", "angle", "turn", "picture"}};
    for (std::size_t i = 0; i < images.size(); ++i) {
        const Deviation deviation = deviationFrom(plane, images[i]);
        rows.push_back({std::to_string(i + 1), fixedText(deviation.distance, 6),
                        fixedText(deviation.angleDegrees, 4), fixedText(deviation.turnDegrees, 4),
                        visible(manifest.images[i].path)});
    }
    printTable(out, {Align::Right, Align::Right, Align::Right, Align::Right, Align::Left}, rows);
}

void printPlaneAsJson(std::ostream& out, const Manifest& manifest, const Plane& plane,
                      const std::vector<ImageParam>& images) {
    out << "{\n  \"unit\": " << json(unitName(manifest.unit)) << ",\n  \"origin\": " << json(plane.origin)
        << ",\n  \"xAxis\": " << json(plane.xAxis) << ",\n  \"yAxis\": " << json(plane.yAxis)
        << ",\n  \"images\": [";
    for (std::size_t i = 0; i < images.size(); ++i) {
        const Deviation deviation = deviationFrom(plane, images[i]);
        out << (i == 0 ? "\n" : ",\n") << "    {\"image\": " << json(i + 1)
            << ", \"path\": " << json(manifest.images[i].path)
            << ", \"distance\": " << json(deviation.distance)
            << ", \"angleDegrees\": " << json(deviation.angleDegrees)
            << ", \"turnDegrees\": " << json(deviation.turnDegrees) << '}';
    }
    out << "\n  ]\n}\n";
}

void checkPlane(const Manifest& manifest, const Plane& plane, const std::vector<ImageParam>& images,
                const Tolerance& tolerance, Notices& notices) {
    const double axisAngle = angleDegrees(plane.xAxis, plane.yAxis);
    if (std::abs(axisAngle - 90.0) > tolerance.angleDegrees) {
        notices.warn("the plane's axes are at " + fixedText(axisAngle, 3) +
                     " degrees to each other instead of 90, so the drawing comes out sheared");
    }
    for (std::size_t i = 0; i < images.size(); ++i) {
        const Deviation deviation = deviationFrom(plane, images[i]);
        std::string text;
        if (deviation.angleDegrees > tolerance.angleDegrees)
            append(text, "the angle out of it is " + fixedText(deviation.angleDegrees, 3) + " degrees");
        if (std::abs(deviation.distance) > tolerance.distance) {
            append(text, "the distance is " + fixedText(deviation.distance, 6) + ' ' +
                             std::string(unitName(manifest.unit)));
        }
        if (deviation.turnDegrees > tolerance.angleDegrees) {
            append(text, "the turn in it is " + fixedText(deviation.turnDegrees, 3) +
                             " degrees, so that the frame lines do not lie on the picture");
        }
        if (!text.empty()) {
            notices.warn(manifest.where(i) + ": the image does not lie in the reference plane: " + text +
                         "; it is written all the same");
        }
    }
}

} // namespace rasterplan_tool
