#include "site/Placement.h"

#include "base/Failure.h"
#include "base/PathText.h"
#include "base/Vector.h"
#include "site/Site.h"
#include "tool/TestFiles.h"
#include "tool/TestPictures.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

namespace fs = std::filesystem;

namespace rasterplan_tool {
namespace {

class Placement : public testing::Test {
protected:
    Placement() { fs::copy_file(testData("grey-17x9.png"), m_folder / "a.png"); }

    Site read(const std::string& images) {
        std::ostringstream silent;
        Console console{silent, silent};
        return readSite(writeFile(m_folder / "SITE.json", "{\"images\": [" + images + "]}"),
                        PicturesToRead::Needed, console);
    }

    CornerPlace placeOf(const std::string& image) { return read(image).places.at(0); }

    // What is said of the image, behind its place in SITE.json.
    std::string failureOf(const std::string& image) {
        try {
            read(image);
        } catch (const BadInput& failure) {
            const std::string text = failure.what();
            const std::string place = utf8FromPath(m_folder / "SITE.json") + ":1: image 1 (\"";
            EXPECT_EQ(text.find(place), 0U) << text;
            return text.substr(text.find("\"): ", place.size()) + 4);
        }
        return "no failure";
    }

    std::string at(std::string_view entry) const { return quoted(m_folder / entry); }

    TestFolder m_folder;
};

void expectNear(const TripleDouble& point, const TripleDouble& expected) {
    EXPECT_LT(length(point - expected), 1e-9) << point.x << ' ' << point.y << ' ' << point.z;
}

void expectSame(const TripleDouble& point, const TripleDouble& expected) {
    EXPECT_EQ(point.x, expected.x);
    EXPECT_EQ(point.y, expected.y);
    EXPECT_EQ(point.z, expected.z);
}

constexpr const char* notMirrored =
    " for a rectangle with square pixels that is not mirrored; bring the picture into "
    "such a raster";

} // namespace

TEST_F(Placement, CornersArePassedOn) {
    const CornerPlace place = placeOf(R"({"path": "no.png", "leftTop": [0.1,0,0.3], "leftBottom": [0.1,0,0],
"rightBottom": [0.7,0,0], "pixelsPerUnit": 100.1})");
    expectSame(place.leftTop, {0.1, 0, 0.3});
    expectSame(place.leftBottom, {0.1, 0, 0});
    expectSame(place.rightBottom, {0.7, 0, 0});
    EXPECT_EQ(place.pixelsPerUnit, 100.1);
}

TEST_F(Placement, SizeAlongDirectionsComesFromThePicture) {
    const CornerPlace place = placeOf(R"({"path": "a.png", "leftBottom": [1,2,3], "right": [3,4,0],
"up": [0,0,0.01], "pixelsPerUnit": 10})");
    expectNear(place.leftTop, {1, 2, 3.9});
    expectSame(place.leftBottom, {1, 2, 3});
    expectNear(place.rightBottom, {1 + 0.6 * 1.7, 2 + 0.8 * 1.7, 3});
    EXPECT_EQ(place.pixelsPerUnit, 10.0);
}

TEST_F(Placement, DirectionsNeedAPictureThatCanBeRead) {
    EXPECT_EQ(failureOf(R"({"path": "no.png", "leftBottom": [1,2,3], "right": [3,4,0], "up": [0,0,1],
"pixelsPerUnit": 10})"),
              "the picture's pixels give the image its size, but " + at("no.png") +
                  ": there is no such file; correct that, or give leftTop, leftBottom and rightBottom");
}

TEST_F(Placement, ObliqueDirectionsAreNoRectangle) {
    const Site site = read(R"({"path": "a.png", "leftBottom": [0,0,0], "right": [1,0,0], "up": [0.1,0,1],
"pixelsPerUnit": 10})");
    RasterPlanWriter drawing;
    try {
        addImages(drawing, site.manifest, makeImages(site, {L"a.png"}));
        FAIL() << "no failure";
    } catch (const BadInput& failure) {
        EXPECT_NE(std::string(failure.what())
                      .find("the angle at leftBottom is 84.289 degrees instead of 90; correct right or up"),
                  std::string::npos)
            << failure.what();
    }
}

TEST_F(Placement, WorldFileBesideThePictureLiesInTheGroundPlane) {
    writeFile(m_folder / "a.pgw", "0.5\n0\n0\n-0.5\n1000.25\n1999.75\n");
    const CornerPlace place = placeOf(R"({"path": "a.png"})");
    expectSame(place.leftTop, {1000, 2000, 0});
    expectSame(place.leftBottom, {1000, 1995.5, 0});
    expectSame(place.rightBottom, {1008.5, 1995.5, 0});
    EXPECT_EQ(place.pixelsPerUnit, 2.0);
    expectSame(placeOf(R"({"path": "a.png", "elevation": 510.5})").leftTop, {1000, 2000, 510.5});
}

TEST_F(Placement, WorldFileInAPlane) {
    writeFile(m_folder / "b.wld", "0.5\n0\n0\n-0.5\n10.25\n19.75\n");
    const CornerPlace place = placeOf(R"({"path": "a.png", "worldFile": "b.wld",
"plane": {"origin": [100,200,300], "xAxis": [0,5,0], "yAxis": [0,0,0.1]}})");
    expectNear(place.leftTop, {100, 210, 320});
    expectNear(place.leftBottom, {100, 210, 315.5});
    expectNear(place.rightBottom, {100, 218.5, 315.5});
}

TEST_F(Placement, TurnedWorldFile) {
    // Turned by the angle whose cosine is 0.8, to the left; the left-top corner lies at 0, 0.
    writeFile(m_folder / "a.pgw", "0.4\n0.3\n0.3\n-0.4\n0.35\n-0.05\n");
    const CornerPlace place = placeOf(R"({"path": "a.png"})");
    expectNear(place.leftTop, {0, 0, 0});
    expectNear(place.leftBottom, {4.5 * 0.6, -4.5 * 0.8, 0});
    expectNear(place.rightBottom, {4.5 * 0.6 + 8.5 * 0.8, -4.5 * 0.8 + 8.5 * 0.6, 0});
    EXPECT_DOUBLE_EQ(place.pixelsPerUnit, 2.0);
}

TEST_F(Placement, HalfAPixelOfSkewIsTolerated) {
    writeFile(m_folder / "a.pgw", "0.5\n0\n0.027\n-0.527\n0\n0\n");
    EXPECT_EQ(placeOf(R"({"path": "a.png"})").pixelsPerUnit, 2.0);
}

TEST_F(Placement, TermsThatGiveNoRectangleOfSquarePixelsAreNamed) {
    const struct {
        const char* numbers;
        std::string complaint;
    } cases[] = {
        {"0.5\n0\n0\n-0.6\n",
         "y per row (line 4) is -0.6, but must be -0.5 beside x per column (line 1) of 0.5"},
        {"0.5\n0\n0\n0.5\n",
         "y per row (line 4) is 0.5, but must be -0.5 beside x per column (line 1) of 0.5"},
        {"-0.5\n0\n0\n-0.5\n",
         "y per row (line 4) is -0.5, but must be 0.5 beside x per column (line 1) of -0.5"},
        {"0.4\n0.3\n-0.3\n-0.4\n",
         "x per row (line 3) is -0.3, but must be 0.3 beside y per column (line 2) of 0.3"},
        {"0.5\n0\n0.03\n-0.5\n",
         "x per row (line 3) is 0.03, but must be 0 beside y per column (line 2) of 0"},
    };
    for (const auto& wrong : cases) {
        writeFile(m_folder / "a.pgw", wrong.numbers + std::string("0\n0\n"));
        EXPECT_EQ(failureOf(R"({"path": "a.png"})"),
                  "world file " + at("a.pgw") + ": " + wrong.complaint + notMirrored);
    }
    writeFile(m_folder / "a.pgw", "0\n0\n0.5\n-0.5\n0\n0\n");
    EXPECT_EQ(failureOf(R"({"path": "a.png"})"),
              "world file " + at("a.pgw") +
                  ": lines 1 and 2 are both 0, so that a pixel has no width; correct them");
}

TEST_F(Placement, WorldFilesThatAreNoneAreNamed) {
    writeFile(m_folder / "a.pgw", "0,5\n");
    EXPECT_EQ(failureOf(R"({"path": "a.png"})").find("world file " + at("a.pgw") + ": line 1 is \"0,5\""),
              0U);
    EXPECT_EQ(failureOf(R"({"path": "a.png", "worldFile": "no.wld"})"),
              "world file " + at("no.wld") + ": there is no such file; correct the path");
}

TEST_F(Placement, ImageWithoutAnyPlaceIsNamed) {
    EXPECT_EQ(failureOf(R"({"path": "a.png", "name": "Süd"})").find("nothing says where the image lies: "),
              0U);
    EXPECT_EQ(failureOf(R"({"path": "no.png"})").find("the picture's pixels give the image its size"), 0U);
}

TEST_F(Placement, GeoTiffLiesInTheGroundPlane) {
    writeFile(m_folder / "a.tif", tiffBytes({}, 17, 9, geoTags(1000, 2000, 0.5)));
    const CornerPlace place = placeOf(R"({"path": "a.tif", "elevation": 7})");
    expectSame(place.leftTop, {1000, 2000, 7});
    expectSame(place.leftBottom, {1000, 1995.5, 7});
    expectSame(place.rightBottom, {1008.5, 1995.5, 7});
    EXPECT_EQ(place.pixelsPerUnit, 2.0);
}

TEST_F(Placement, GeoTiffsOfAnotherProgram) {
    for (const char* name : {"map-17x9.tif", "map-17x9-big.tif"}) {
        fs::copy_file(testData(name), m_folder / name);
        const CornerPlace place = placeOf("{\"path\": \"" + std::string(name) + "\"}");
        expectSame(place.leftTop, {1000, 2000, 0});
        expectSame(place.rightBottom, {1008.5, 1995.5, 0});
    }
    // The one says that its coordinates are those of pixels' centers.
    fs::copy_file(testData("map-17x9-tiles.tif"), m_folder / "c.tif");
    expectSame(placeOf(R"({"path": "c.tif"})").leftTop, {1000, 2000, 0});
}

TEST_F(Placement, GeoTiffThatPlacesNothingIsNamed) {
    writeFile(m_folder / "a.tif", tiffBytes({}, 17, 9, {{33550, {}, {0.5, 0.5, 0}}}));
    EXPECT_EQ(failureOf(R"({"path": "a.tif"})").find(at("a.tif") + ": its GeoTIFF tags hold neither"), 0U);
    writeFile(m_folder / "a.tif",
              tiffBytes({}, 17, 9, {{33550, {}, {0.5, 0.6, 0}}, {33922, {}, {0, 0, 0, 1, 2, 0}}}));
    EXPECT_EQ(
        failureOf(R"({"path": "a.tif"})"),
        std::string(
            "the picture's GeoTIFF tags: y per row is -0.6, but must be -0.5 beside x per column of 0.5") +
            notMirrored);
    writeFile(m_folder / "a.tif",
              tiffBytes({}, 17, 9, {{33550, {}, {0, 0, 0}}, {33922, {}, {0, 0, 0, 1, 2, 0}}}));
    EXPECT_EQ(failureOf(R"({"path": "a.tif"})"),
              "the picture's GeoTIFF tags: a pixel has no width; correct the tags");
}

TEST_F(Placement, UnitOfAGeoTiffMustBeTheImages) {
    std::vector<TiffTag> tags = geoTags(1000, 2000, 0.5);
    tags.push_back(geoKeys({{3076, 9002}}));
    writeFile(m_folder / "a.tif", tiffBytes({}, 17, 9, tags));
    EXPECT_EQ(
        failureOf(R"({"path": "a.tif"})"),
        "the picture's GeoTIFF tags are in Feet, but the image is in Meters; write \"unit\": \"Feet\" in "
        "the image");
    EXPECT_EQ(placeOf(R"({"path": "a.tif", "unit": "ft"})").leftTop.x, 1000.0);
    EXPECT_EQ(placeOf(R"({"path": "a.tif", "unit": "Unitless"})").leftTop.x, 1000.0);
}

TEST_F(Placement, WorldFileAndTagsMustAgreeUnlessTheFileIsNamed) {
    writeFile(m_folder / "a.tif", tiffBytes({}, 17, 9, geoTags(1000, 2000, 0.5)));
    writeFile(m_folder / "a.tfw", "0.5\n0\n0\n-0.5\n1000.25\n1999.75\n");
    expectSame(placeOf(R"({"path": "a.tif"})").leftTop, {1000, 2000, 0});
    writeFile(m_folder / "a.tfw", "0.5\n0\n0\n-0.5\n1000\n2000\n"); // the corner instead of the center
    EXPECT_EQ(
        failureOf(R"({"path": "a.tif"})"),
        "the world file " + at("a.tfw") +
            " and the picture's own GeoTIFF tags give different places; delete the world file, or name it "
            "with \"worldFile\" where it is the right one");
    expectSame(placeOf(R"({"path": "a.tif", "worldFile": "a.tfw"})").leftTop, {999.75, 2000.25, 0});
    writeFile(m_folder / "a.tif", tiffBytes({}, 17, 9, {{33550, {}, {0.5, 0.5, 0}}}));
    expectSame(placeOf(R"({"path": "a.tif"})").leftTop, {999.75, 2000.25, 0});
}

TEST_F(Placement, OtherUnitsAreConvertedIntoTheSites) {
    const Site site =
        read(R"({"path": "b.png", "leftTop": [0,0,3], "leftBottom": [0,0,0], "rightBottom": [6,0,0],
"pixelsPerUnit": 100},
{"path": "b.png", "leftTop": [1000,2000,3000], "leftBottom": [1000,2000,0], "rightBottom": [7000,2000,0],
"pixelsPerUnit": 0.1, "unit": "mm"},
{"path": "b.png", "leftTop": [10,0,3], "leftBottom": [10,0,0], "rightBottom": [16,0,0], "pixelsPerUnit": 30.48,
"unit": "ft"})");
    expectSame(site.places[0].leftTop, {0, 0, 3});
    expectNear(site.places[1].leftTop, {1, 2, 3});
    expectNear(site.places[1].rightBottom, {7, 2, 0});
    EXPECT_DOUBLE_EQ(site.places[1].pixelsPerUnit, 100.0);
    expectNear(site.places[2].leftTop, {3.048, 0, 0.9144});
    EXPECT_DOUBLE_EQ(site.places[2].pixelsPerUnit, 100.0);
    for (const ImageParam& image : makeImages(site, {L"a", L"b", L"c"}))
        EXPECT_EQ(image.getDrawingUnit(), Meters);
    EXPECT_NEAR(makeImages(site, {L"a", L"b", L"c"})[1].getNumPixelWidth(), 600.0, 1e-9);
}

TEST_F(Placement, NumbersBeyondTheSitesUnitAreNamed) {
    const std::string image = R"({"path": "b.png", "leftTop": [0,0,1e5], "leftBottom": [0,0,0],
"rightBottom": [1e5,0,0], "pixelsPerUnit": 1, "unit": "Parsecs"}, )";
    EXPECT_EQ(
        failureOf(image + R"({"path": "b.png", "leftTop": [0,0,1], "leftBottom": [0,0,0],
"rightBottom": [1,0,0], "pixelsPerUnit": 1})"),
        "in Meters its corners or pixels per unit would be beyond 1e+18; correct its numbers or its unit");
}

TEST_F(Placement, EveryImageThatCannotBePlacedIsNamed) {
    try {
        read("{\"path\": \"a.png\"},\n{\"path\": \"no.png\"}");
        FAIL() << "no failure";
    } catch (const BadInput& failure) {
        const std::string text = failure.what();
        EXPECT_NE(text.find(":1: image 1"), std::string::npos) << text;
        EXPECT_NE(text.find("\n" + utf8FromPath(m_folder / "SITE.json") + ":2: image 2"), std::string::npos)
            << text;
    }
}

} // namespace rasterplan_tool
