// The examples are right to the last digit, so that whoever compares need not round.

#include "base/PathText.h"
#include "picture/PictureHeader.h"
#include "site/Manifest.h"
#include "tool/TestFiles.h"
#include "tool/program/Program.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace fs = std::filesystem;

namespace rasterplan_tool {
namespace {

struct Example {
    const char* command;
    const char* site;
};
constexpr std::array<Example, 3> examples = {{{"3d", "site"}, {"3d", "elevation"}, {"2d", "elevation"}}};

fs::path exampleSite(const std::string& name) {
    return (pathFromUtf8(RASTERPLAN_EXAMPLES) / name / "SITE.json").make_preferred();
}

// A pair of the drawing's text, as numbers are written there.
std::string numberPair(int code, std::uint32_t whole) {
    return std::to_string(code) + "\r\n" + std::to_string(whole) + "." + std::string(17, '0') + "\r\n";
}

bool isInEighths(const TripleDouble& point) {
    for (const double coordinate : {point.x, point.y, point.z})
        if (coordinate * 8 != std::floor(coordinate * 8))
            return false;
    return true;
}

} // namespace

TEST(ProgramExamples, CornersAreExactInBinary) {
    for (const char* name : {"site", "elevation"}) {
        for (const ManifestImage& image : readManifest(exampleSite(name)).images) {
            SCOPED_TRACE(image.path);
            const CornerPlace& place = std::get<CornerPlace>(image.place);
            EXPECT_TRUE(isInEighths(place.leftTop));
            EXPECT_TRUE(isInEighths(place.leftBottom));
            EXPECT_TRUE(isInEighths(place.rightBottom));
        }
    }
}

TEST(ProgramExamples, AreWrittenWithoutAWordOfWarningAndInWholePixels) {
    for (const Example& example : examples) {
        SCOPED_TRACE(std::string(example.command) + " " + example.site);
        const TestFolder folder;
        const fs::path site = exampleSite(example.site);
        const ProgramResult result =
            runProgram({example.command, utf8FromPath(site), utf8FromPath(folder / "out.dxf")});
        ASSERT_EQ(result.status, 0);
        EXPECT_EQ(result.err, "");
        const std::string drawing = readBytes(folder / "out.dxf");
        const Manifest manifest = readManifest(site);
        std::size_t place = 0;
        for (std::size_t i = 0; i < manifest.images.size(); ++i) {
            const PixelSize size = readPixelSize(manifest.pictureFile(i));
            const std::string pair = "\r\n" + numberPair(13, size.width) + numberPair(23, size.height);
            place = drawing.find(pair, place + 1);
            ASSERT_NE(place, std::string::npos) << manifest.images[i].path;
        }
    }
}

} // namespace rasterplan_tool
