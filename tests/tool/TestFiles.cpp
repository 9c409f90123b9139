#include "tool/TestFiles.h"

#include "base/NumberText.h"
#include "base/PathText.h"

#include <algorithm>

namespace fs = std::filesystem;

namespace rasterplan_tool {

fs::path TestFolder::operator/(std::string_view entry) const {
    return rasterplan::test::TestFolder::operator/(entry).make_preferred();
}

std::vector<std::string> TestFolder::names() const {
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(path()))
        names.push_back(shownText(entry.path().filename()));
    std::sort(names.begin(), names.end());
    return names;
}

fs::path writeFile(const fs::path& file, std::string_view bytes) {
    fs::create_directories(file.parent_path());
    rasterplan::test::writeBytes(file, bytes);
    return file;
}

fs::path testData(std::string_view name) {
    return pathFromUtf8(RASTERPLAN_TEST_DATA) / pathFromUtf8(name);
}

std::string imageText(std::string_view path, double x, double y) {
    const auto point = [y](double px, double pz) {
        return '[' + shortestText(px) + ", " + shortestText(y) + ", " + shortestText(pz) + ']';
    };
    return R"({"path": ")" + std::string(path) + R"(", "leftTop": )" + point(x, 0.09) +
           R"(, "leftBottom": )" + point(x, 0.0) + R"(, "rightBottom": )" + point(x + 0.17, 0.0) +
           R"(, "pixelsPerUnit": 100})";
}

std::string siteText(const std::vector<std::string>& images) {
    std::string text = "{\"images\": [";
    for (const std::string& image : images)
        text += (&image == &images.front() ? "\n" : ",\n") + image;
    return text + "\n]}\n";
}

bool holds(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

} // namespace rasterplan_tool
