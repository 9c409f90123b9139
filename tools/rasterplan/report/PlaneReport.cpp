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

// Why an image does not fit a plane; without words if it does.
struct Misfit {
    std::string ofSeveral; // in words that hold for every image with these reasons
    std::string ofThis;    // with the numbers of this image

    void add(const std::string& several, const std::string& one) {
        append(ofSeveral, several);
        append(ofThis, one);
    }
};

std::string lengthText(double length, const Manifest& manifest) {
    return fixedText(length, 6) + ' ' + std::string(unitName(manifest.unit));
}

Misfit misfitOf(const Manifest& manifest, const Deviation& deviation, const ImageParam& image,
                const Tolerance& tolerance) {
    const auto exceeds = [&](double degrees) { return std::abs(degrees) > tolerance.angleDegrees; };
    const auto degreesText = [](double degrees) { return fixedText(degrees, 3) + " degrees"; };
    Misfit misfit;
    if (deviation.isMirrored())
        misfit.add("seen from behind, so mirrored", "it is seen from behind and comes out mirrored");
    const double angle = deviation.isMirrored() ? 180.0 - deviation.angleDegrees : deviation.angleDegrees;
    if (exceeds(angle))
        misfit.add("at an angle out of it", "the angle out of it is " + degreesText(angle));
    if (!exceeds(180.0 - std::abs(deviation.turnDegrees)))
        misfit.add("on their head", "it stands on its head");
    else if (exceeds(deviation.turnDegrees))
        misfit.add("turned in it", "the turn in it is " + degreesText(deviation.turnDegrees));
    if (std::abs(deviation.distance) > tolerance.distance)
        misfit.add("away from it", "the distance is " + lengthText(deviation.distance, manifest));
    if (isVisible(deviation.frameDisplacement, image)) {
        const double pixels = deviation.frameDisplacement * image.getNumPixelPerUnit();
        misfit.add("frames beside the pictures", "the frame lies beside the picture by " +
                                                     lengthText(deviation.frameDisplacement, manifest) +
                                                     " (" + fixedText(pixels, 1) + " pixels)");
    }
    return misfit;
}

bool suits(const Manifest& manifest, const Deviation& deviation, const ImageParam& image) {
    return misfitOf(manifest, deviation, image, defaultTolerance(manifest.unit)).ofThis.empty();
}

std::string suitsText(const Manifest& manifest, const std::vector<Deviation>& deviations,
                      const std::vector<ImageParam>& images) {
    std::vector<std::size_t> unsuited;
    for (std::size_t i = 0; i < images.size(); ++i)
        if (!suits(manifest, deviations[i], images[i]))
            unsuited.push_back(i + 1);
    if (unsuited.empty())
        return images.size() == 1 ? "This plane suits the image."
                                  : "One plane suits all " + std::to_string(images.size()) + " images.";
    if (unsuited.size() == images.size())
        return "One plane suits none of these images; write them in 3D, or those of each facade by "
               "themselves.";
    return "One plane suits these images but " + rangesText(unsuited) + "; write the whole in 3D, or leave " +
           (unsuited.size() == 1 ? "this one" : "these") + " out.";
}

std::string heightText(const Manifest& manifest, const Plane& plane, const std::vector<Deviation>& deviations,
                       const std::vector<ImageParam>& images) {
    constexpr double ratherFlat = 45.0;
    double largest = 0.0;
    bool isHeight = true;
    for (std::size_t i = 0; i < images.size(); ++i) {
        largest = std::max(largest, deviations[i].heightError);
        isHeight = isHeight && !isVisible(deviations[i].heightError, images[i]);
    }
    if (isHeight)
        return "y reads as height.";
    const double leaning = angleDegrees(plane.yAxis, {0, 0, 1});
    if (leaning > ratherFlat)
        return "y is no height: it points " + fixedText(leaning, 1) + " degrees away from upwards.";
    return "y does not read as height: it is up to " + lengthText(largest, manifest) +
           " off; --y-axis=0,0,1 and a horizontal --x-axis would make it so.";
}

std::vector<Deviation> deviationsFrom(const Plane& plane, const std::vector<ImageParam>& images) {
    std::vector<Deviation> deviations;
    deviations.reserve(images.size());
    for (const ImageParam& image : images)
        deviations.push_back(deviationFrom(plane, image));
    return deviations;
}

std::string verdict(const Manifest& manifest, const Plane& plane, const std::vector<Deviation>& deviations,
                    const std::vector<ImageParam>& images) {
    return suitsText(manifest, deviations, images) + ' ' + heightText(manifest, plane, deviations, images);
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
        << "\n\nHow each image lies to it: distance of its furthest corner, angle out of the plane and\nturn "
           "in "
           "it in degrees, and how far its frame lies beside the picture:\n\n";
    const std::vector<Deviation> deviations = deviationsFrom(plane, images);
    std::vector<Row> rows{{"image", "distance", "angle", "turn", "frame", "picture"}};
    for (std::size_t i = 0; i < images.size(); ++i) {
        const Deviation& deviation = deviations[i];
        rows.push_back({std::to_string(i + 1), fixedText(deviation.distance, 6),
                        fixedText(deviation.angleDegrees, 4), fixedText(deviation.turnDegrees, 4),
                        fixedText(deviation.frameDisplacement, 6), visible(manifest.images[i].path)});
    }
    printTable(out, {Align::Right, Align::Right, Align::Right, Align::Right, Align::Right, Align::Left},
               rows);
    out << '\n' << verdict(manifest, plane, deviations, images) << '\n';
}

void printPlaneAsJson(std::ostream& out, const Manifest& manifest, const Plane& plane,
                      const std::vector<ImageParam>& images) {
    const std::vector<Deviation> deviations = deviationsFrom(plane, images);
    out << "{\n  \"unit\": " << json(unitName(manifest.unit)) << ",\n  \"origin\": " << json(plane.origin)
        << ",\n  \"xAxis\": " << json(plane.xAxis) << ",\n  \"yAxis\": " << json(plane.yAxis)
        << ",\n  \"verdict\": " << json(verdict(manifest, plane, deviations, images)) << ",\n  \"images\": [";
    for (std::size_t i = 0; i < images.size(); ++i) {
        const Deviation& deviation = deviations[i];
        out << (i == 0 ? "\n" : ",\n") << "    {\"image\": " << json(i + 1)
            << ", \"path\": " << json(manifest.images[i].path)
            << ", \"suits\": " << json(suits(manifest, deviation, images[i]))
            << ", \"distance\": " << json(deviation.distance)
            << ", \"angleDegrees\": " << json(deviation.angleDegrees)
            << ", \"turnDegrees\": " << json(deviation.turnDegrees)
            << ", \"frameDisplacement\": " << json(deviation.frameDisplacement)
            << ", \"heightError\": " << json(deviation.heightError) << '}';
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
        const Misfit misfit = misfitOf(manifest, deviationFrom(plane, images[i]), images[i], tolerance);
        if (misfit.ofThis.empty())
            continue;
        notices.warn(manifest.subject(i),
                     "the images do not fit the reference plane (" + misfit.ofSeveral +
                         "); write them in 3D or into a plane of their own",
                     "the image does not fit the reference plane: " + misfit.ofThis +
                         "; write it in 3D or into a plane of its own");
    }
}

} // namespace rasterplan_tool
