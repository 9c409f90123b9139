#pragma once

#include "support/TestFolder.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace rasterplan_tool {

/// The folder of one test, with what the tests of a command-line program need besides.
class TestFolder : public rasterplan::test::TestFolder {
public:
    /// The path of an entry, given in UTF-8 with '/' between folders; it has the system's own separators, as
    /// the program's messages do.
    std::filesystem::path operator/(std::string_view entry) const;

    /// The names of all entries, sorted.
    std::vector<std::string> names() const;
};

using rasterplan::test::readBytes;

/// Writes a file; folders on the way are made. Returns the path.
std::filesystem::path writeFile(const std::filesystem::path& file, std::string_view bytes);

/// A file of the test data folder.
std::filesystem::path testData(std::string_view name);

/// The text of an image of SITE.json: upright in the plane y = `y`, 0.17 x 0.09 units, right for a picture of
/// 17 x 9 pixels.
std::string imageText(std::string_view path, double x = 0.0, double y = 0.0);

/// The text of SITE.json with these images.
std::string siteText(const std::vector<std::string>& images);

/// Whether a text holds another.
bool holds(std::string_view text, std::string_view part);

} // namespace rasterplan_tool
