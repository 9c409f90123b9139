#include "view/Page.h"

#include "base/NumberText.h"
#include "base/Vector.h"
#include "view/PageParts.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <string_view>

namespace rasterplan_tool {
namespace {

using Json = nlohmann::json;

// Texts of the drawing must not end the element that holds them. Only texts are made by the library: the
// destructor of its arrays asks for memory.
std::string jsonText(std::string_view value) {
    std::string text = Json(value).dump(-1, ' ', true, Json::error_handler_t::replace);
    for (std::size_t at = text.find('<'); at != std::string::npos; at = text.find('<', at))
        text.replace(at, 1, "\\u003c");
    return text;
}

std::string jsonNumbers(std::initializer_list<double> numbers) {
    std::string text;
    for (const double number : numbers)
        text += (text.empty() ? "[" : ",") + shortestText(number);
    return text + ']';
}

std::string htmlText(std::string_view text) {
    std::string escaped;
    for (const char each : text) {
        switch (each) {
        case '&':
            escaped += "&amp;";
            break;
        case '<':
            escaped += "&lt;";
            break;
        case '"':
            escaped += "&quot;";
            break;
        default:
            escaped += each;
        }
    }
    return escaped;
}

std::string triple(const TripleDouble& a) {
    return jsonNumbers({a.x, a.y, a.z});
}

std::string fileName(std::string_view path) {
    return std::string(path.substr(path.find_last_of("/\\") + 1));
}

// A point amid everything. What a browser computes with single precision is near zero then.
TripleDouble middleOf(const DrawingScene& scene) {
    std::vector<TripleDouble> points;
    for (const ScenePicture& picture : scene.pictures)
        points.push_back(picture.leftBottom + 0.5 * picture.pixelsAcross * picture.pixelU +
                         0.5 * picture.pixelsUpright * picture.pixelV);
    for (const SceneLine& line : scene.lines)
        points.push_back(line.start);
    const auto middle = [&points](double TripleDouble::*axis) {
        const auto [least, most] = std::minmax_element(
            points.begin(), points.end(),
            [axis](const TripleDouble& a, const TripleDouble& b) { return a.*axis < b.*axis; });
        return points.empty() ? 0.0 : std::round(0.5 * ((*least).*axis + (*most).*axis));
    };
    return {middle(&TripleDouble::x), middle(&TripleDouble::y), middle(&TripleDouble::z)};
}

// How many digits after the point a coordinate is worth: a tenth of a pixel.
int decimalsOf(const DrawingScene& scene) {
    double finest = 0.01;
    for (const ScenePicture& picture : scene.pictures)
        finest = std::min(finest, length(picture.pixelU));
    return std::clamp(static_cast<int>(std::ceil(1.0 - std::log10(finest))), 0, 9);
}

void writeDrawing(std::ostream& page, const DrawingScene& scene,
                  const std::function<std::string(const ScenePicture&)>& source) {
    const TripleDouble origin = middleOf(scene);
    page << R"({"unit":)" << jsonText(scene.unit) << ",\n\"origin\":" << triple(origin)
         << ",\n\"decimals\":" << decimalsOf(scene) << ",\n\"viewport\":";
    if (scene.viewport) {
        page << R"({"target":)" << triple(scene.viewport->target - origin) << R"(,"towards":)"
             << triple(scene.viewport->towards) << R"(,"up":)" << triple(scene.viewport->up)
             << R"(,"height":)" << shortestText(scene.viewport->height) << R"(,"ratio":)"
             << shortestText(scene.viewport->ratio) << '}';
    } else {
        page << "null";
    }
    page << ",\n\"lines\":[";
    const char* separator = "\n";
    for (const SceneLine& line : scene.lines) {
        const TripleDouble start = line.start - origin;
        const TripleDouble end = line.end - origin;
        page << separator << jsonNumbers({start.x, start.y, start.z, end.x, end.y, end.z});
        separator = ",\n";
    }
    page << "],\n\"pictures\":[";
    separator = "\n";
    for (const ScenePicture& picture : scene.pictures) {
        page << separator << R"({"name":)" << jsonText(fileName(picture.path)) << R"(,"path":)"
             << jsonText(picture.path) << R"(,"source":)" << jsonText(source(picture)) << R"(,"at":)"
             << triple(picture.leftBottom - origin) << R"(,"u":)" << triple(picture.pixelU) << R"(,"v":)"
             << triple(picture.pixelV) << R"(,"pixels":)"
             << jsonNumbers({picture.pixelsAcross, picture.pixelsUpright}) << R"(,"isShown":)"
             << (picture.isShown ? "true" : "false") << '}';
        separator = ",\n";
    }
    page << "]}";
}

} // namespace

bool canWritePages() {
    return !pagePart("three.min.js").empty();
}

void writePage(std::ostream& page, const std::string& title, const DrawingScene& scene,
               const std::function<std::string(const ScenePicture&)>& source) {
    std::string_view rest = pagePart("page.html");
    for (std::size_t open = rest.find("{{"); open != std::string_view::npos; open = rest.find("{{")) {
        const std::size_t close = rest.find("}}", open);
        const std::string_view name = rest.substr(open + 2, close - open - 2);
        page << rest.substr(0, open);
        if (name == "title")
            page << htmlText(title);
        else if (name == "version")
            page << RASTERPLAN_VERSION;
        else if (name == "licence")
            page << htmlText(pagePart(name));
        else if (name == "drawing")
            writeDrawing(page, scene, source);
        else
            page << pagePart(name);
        rest.remove_prefix(close + 2);
    }
    page << rest;
}

} // namespace rasterplan_tool
