// What is said of a plane, beside what the drawings that are written into it really hold.

#include "report/PlaneReport.h"

#include "Run.h"
#include "base/NumberText.h"
#include "base/PathText.h"
#include "base/Vector.h"
#include "drawing/PathForm.h"
#include "site/Site.h"
#include "tool/TestFiles.h"
#include "view/DrawingScene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <sstream>

namespace rasterplan_tool {
namespace {

const Plane uprightPlane{{0, 0, 0}, {1, 0, 0}, {0, 0, 1}};
constexpr double degree = 0.017453292519943295;

std::string json(const TripleDouble& triple) {
    return '[' + shortestText(triple.x) + ',' + shortestText(triple.y) + ',' + shortestText(triple.z) + ']';
}

// An image of 4 x 2 units and 800 x 400 pixels.
std::string imageAt(const TripleDouble& leftBottom, const TripleDouble& right, const TripleDouble& up) {
    return R"({"path": "a.png", "leftTop": )" + json(leftBottom + 2.0 * up) + R"(, "leftBottom": )" +
           json(leftBottom) + R"(, "rightBottom": )" + json(leftBottom + 4.0 * right) +
           R"(, "pixelsPerUnit": 200})";
}

// The image, turned in the upright plane.
std::string turnedAt(const TripleDouble& leftBottom, double degrees) {
    const double s = std::sin(degrees * degree);
    const double c = std::cos(degrees * degree);
    return imageAt(leftBottom, {c, 0, s}, {-s, 0, c});
}

class PlaneReport : public testing::Test {
protected:
    // What the program prints; standard error where it writes a drawing.
    std::string said(const std::string& command, const std::string& site,
                     const std::vector<std::string>& options = {}) {
        writeFile(m_folder / "a.png", "");
        writeFile(m_folder / "SITE.json", site);
        std::vector<std::string> arguments{command, utf8FromPath(m_folder / "SITE.json")};
        if (command == "2d")
            arguments.push_back(utf8FromPath(m_folder / "out.dxf"));
        arguments.insert(arguments.end(), options.begin(), options.end());
        std::ostringstream out;
        std::ostringstream err;
        EXPECT_EQ(run([&] { return arguments; }, {out, err}), 0) << err.str();
        return command == "2d" ? err.str() : out.str();
    }

    // What is warned of an image that is flattened into the plane.
    std::string warningOf(const std::string& image, const Plane& plane = uprightPlane) {
        const auto option = [](const char* name, const TripleDouble& triple) {
            const std::string text = json(triple);
            return name + ('=' + text.substr(1, text.size() - 2));
        };
        const std::string all = said("2d", siteText({image}),
                                     {option("--origin", plane.origin), option("--x-axis", plane.xAxis),
                                      option("--y-axis", plane.yAxis)});
        const std::size_t begin = all.find("the image does not fit");
        return begin == std::string::npos ? "" : all.substr(begin, all.find('\n', begin) - begin);
    }

    // The verdict on a site without its pictures.
    std::string verdictOn(const std::vector<std::string>& images) {
        const std::string text = said("plane", siteText(images));
        const std::size_t begin = text.rfind("\n\n") + 2;
        EXPECT_EQ(text.find("-0,"), std::string::npos) << text;
        return text.substr(begin);
    }

    // The deviation of the image that the drawing written last holds.
    Deviation deviationOfLast(const Plane& plane) const {
        std::ostringstream out;
        std::ostringstream err;
        Console console{out, err};
        const Site site = readSite(m_folder / "SITE.json", PicturesToRead::Needed, console);
        return deviationFrom(plane, makeImages(site, drawingPaths(site, PathForm::AsGiven, {})).front());
    }

    // How far the frame lies beside the picture in the drawing written last, corner by corner.
    double displacementInLast() const {
        const DrawingScene scene = readScene(m_folder / "out.dxf");
        const ScenePicture& picture = scene.pictures.front();
        const TripleDouble u = picture.pixelsAcross * picture.pixelU;
        const TripleDouble v = picture.pixelsUpright * picture.pixelV;
        const TripleDouble o = picture.leftBottom;
        const std::array<TripleDouble, 4> pictureCorners{o, o + u, o + v, o + u + v};
        const std::array<TripleDouble, 4> frameCorners{scene.lines[0].start, scene.lines[0].end,
                                                       scene.lines[1].end, scene.lines[3].end};
        double largest = 0.0;
        for (std::size_t i = 0; i < frameCorners.size(); ++i) {
            const TripleDouble apart = frameCorners[i] - pictureCorners[i];
            largest = std::max(largest, std::hypot(apart.x, apart.y));
        }
        return largest;
    }

    TestFolder m_folder;
};

} // namespace

TEST_F(PlaneReport, FramesLieAsFarBesideTheirPicturesAsIsSaid) {
    const double lean = std::sin(3 * degree);
    const double rise = std::cos(3 * degree);
    const struct {
        std::string image;
        Plane plane;
        bool isBeside;
    } cases[] = {
        {turnedAt({40, 0, 1}, 0.8), uprightPlane, true},
        {turnedAt({-7, 2, 30}, 30), uprightPlane, true},
        {turnedAt({7, 2, 3}, 180), uprightPlane, true},
        {imageAt({40, -25, 1}, {1, 0, 0}, {0, lean, rise}), uprightPlane, true},
        {imageAt({40, 25, 1}, {rise, lean, 0}, {0, 0, 1}), uprightPlane, false},
        {imageAt({40, 25, 1}, {-1, 0, 0}, {0, 0, 1}), uprightPlane, false},
        {turnedAt({500040, 200000, 501}, 0.8), {{500000, 200000, 500}, {1, 0, 0}, {0, 0, 1}}, true},
        {imageAt({3, 1, 2}, {1, 0, 0}, {0, 0, 1}), {{1, 2, 3}, {2, 0, 0.2}, {0, 0, 3}}, true},
        {imageAt({3, 1, 2}, {1, 0, 0}, {0, 0, 1}), {{1, 2, 3}, {1, 0, 0}, {0, 0.6, 0.8}}, true},
        {imageAt({3, 1, 2}, {0.8, 0.6, 0}, {-0.6, 0.8, 0}), {{1, 2, 3}, {1, 0, 0}, {0, 1, 0}}, true},
    };
    for (const auto& each : cases) {
        const std::string warning = warningOf(each.image, each.plane);
        const double said = deviationOfLast(each.plane).frameDisplacement;
        EXPECT_NEAR(said, displacementInLast(), 1e-9) << each.image;
        EXPECT_EQ(said > 0.01, each.isBeside) << each.image;
        EXPECT_EQ(warning.find("the frame lies beside the picture by") != std::string::npos, each.isBeside)
            << warning;
    }
}

TEST_F(PlaneReport, SmallTurnFarFromTheOriginIsNamedByItsDisplacementAlone) {
    const std::string warning = warningOf(turnedAt({40, 0, 0}, 0.8));
    EXPECT_EQ(warning, "the image does not fit the reference plane: the frame lies beside the picture by "
                       "0.614336 Meters (122.9 pixels); write it in 3D or into a plane of its own");
    EXPECT_EQ(warningOf(turnedAt({0, 0, 0}, 0.03)), ""); // less than half a pixel there
}

TEST_F(PlaneReport, LeaningWallIsSaidToLeanAndNotToTurn) {
    const double lean = std::sin(3 * degree);
    const std::string warning = warningOf(imageAt({0, 0, 0}, {1, 0, 0}, {0, lean, std::cos(3 * degree)}));
    EXPECT_NE(warning.find("plane: the angle out of it is 3.000 degrees, the distance is"), std::string::npos)
        << warning;
    EXPECT_EQ(warning.find("turn"), std::string::npos) << warning;
}

TEST_F(PlaneReport, MirroredPicturesAndThoseOnTheirHeadAreCalledSo) {
    EXPECT_EQ(
        warningOf(imageAt({4, 0, 0}, {-1, 0, 0}, {0, 0, 1})),
        "the image does not fit the reference plane: it is seen from behind and comes out mirrored; write "
        "it in 3D or into a plane of its own");
    EXPECT_NE(
        warningOf(imageAt({4, 0, 2}, {-1, 0, 0}, {0, 0, -1})).find("plane: it stands on its head, the frame"),
        std::string::npos);
    EXPECT_NE(
        warningOf(imageAt({0, 0, 2}, {1, 0, 0}, {0, 0, -1}))
            .find("plane: it is seen from behind and comes out mirrored, it stands on its head, the frame"),
        std::string::npos);
}

TEST_F(PlaneReport, VerdictSaysWhichImagesThePlaneSuits) {
    const std::string straight = imageAt({0, 0, 0}, {1, 0, 0}, {0, 0, 1});
    const std::string aside = imageAt({5, 0, 3}, {1, 0, 0}, {0, 0, 1});
    const std::string across = imageAt({0, 0, 0}, {0, 1, 0}, {0, 0, 1});
    EXPECT_EQ(verdictOn({straight}), "This plane suits the image. y reads as height.\n");
    EXPECT_EQ(verdictOn({straight, aside}), "One plane suits all 2 images. y reads as height.\n");
    EXPECT_EQ(
        verdictOn({straight, across}),
        "One plane suits none of these images; write them in 3D, or those of each facade by themselves. y "
        "reads as height.\n");
    const std::string little =
        imageAt({0, 0, 0}, {std::cos(0.9 * degree), std::sin(0.9 * degree), 0}, {0, 0, 1});
    const std::string more =
        imageAt({0, 0, 0}, {std::cos(2.1 * degree), -std::sin(2.1 * degree), 0}, {0, 0, 1});
    EXPECT_EQ(verdictOn({straight, little, straight, more, straight, straight, straight}),
              "One plane suits these images but 2, 4; write the whole in 3D, or leave these out. y reads as "
              "height.\n");
    EXPECT_EQ(verdictOn({straight, straight, more, straight, straight, straight, straight}),
              "One plane suits these images but 3; write the whole in 3D, or leave this one out. y reads as "
              "height.\n");
}

TEST_F(PlaneReport, VerdictSaysWhetherYReadsAsHeight) {
    EXPECT_EQ(verdictOn({imageAt({0, 0, 0}, {1, 0, 0}, {0, 1, 0})}),
              "This plane suits the image. y is no height: it points 90.0 degrees away from upwards.\n");
    EXPECT_EQ(verdictOn({imageAt({0, 0, 5}, {1, 0, 0}, {0, 0.6, 0.8}),
                         imageAt({5, 0.6, 5.8}, {1, 0, 0}, {0, 0.6, 0.8}),
                         imageAt({9, 0, 5}, {1, 0, 0}, {0, 0.6, 0.8})}),
              "One plane suits all 3 images. y does not read as height: it is up to 0.600000 Meters off; "
              "--y-axis=0,0,1 and a horizontal --x-axis would make it so.\n");
}

TEST_F(PlaneReport, NoZeroIsNegative) {
    const std::string site = siteText({imageAt({-0.0, -0.0, -0.0}, {-1, -0.0, -0.0}, {-0.0, -0.0, 1}),
                                       imageAt({-0.0, -0.0, -0.0}, {-1, 0, 0}, {0, 0, 1})});
    for (const std::vector<std::string>& options : {std::vector<std::string>{}, {"--json"}}) {
        const std::string text = said("plane", site, options);
        for (const char* zero : {"=-0,", ",-0,", ",-0 ", ",-0\n", "-0.0,", "-0.0]", "-0.0}"})
            EXPECT_EQ(text.find(zero), std::string::npos) << text;
    }
}

} // namespace rasterplan_tool
