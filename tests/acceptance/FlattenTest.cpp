#include "ExportedDrawing.h"
#include "Triple.h"
#include "support/Numbers.h"
#include "support/StructureWalk.h"
#include "support/TestFolder.h"
#include "support/WideText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <exception>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace rasterplan::test;

// Three directions at right angles, of length 1: x and y span a plane, z looks out of it.
struct Frame {
    TripleDouble x;
    TripleDouble y;
    TripleDouble z;
};

const Frame wall{{1, 0, 0}, {0, 0, 1}, {0, -1, 0}};

// Random numbers that are the same everywhere.
class Chance {
public:
    explicit Chance(unsigned seed)
        : m_engine(seed) {}

    double between(double low, double high) {
        return low + (high - low) * std::ldexp(static_cast<double>(m_engine() >> 11), -53);
    }

    int count(int low, int high) { return static_cast<int>(std::floor(between(low, high + 1))); }

    TripleDouble point(double reach) {
        const double x = between(-reach, reach);
        const double y = between(-reach, reach);
        return {x, y, between(-reach, reach)};
    }

    Frame frame() {
        TripleDouble x = point(1);
        TripleDouble other = point(1);
        while (length(x) < 0.1)
            x = point(1);
        x = normalized(x);
        while (length(cross(x, other)) < 0.1)
            other = point(1);
        const TripleDouble z = normalized(cross(x, other));
        return {x, cross(z, x), z};
    }

private:
    std::mt19937_64 m_engine;
};

// A frame leaning against another by about `angle` in a random direction.
Frame leaning(const Frame& frame, Chance& chance, double angle) {
    const TripleDouble z = normalized(plus(frame.z, times(chance.point(1), angle)));
    const TripleDouble x = normalized(cross(plus(frame.y, times(chance.point(1), angle)), z));
    return {x, cross(z, x), z};
}

struct Picture {
    TripleDouble leftBottom;
    TripleDouble rightBottom;
    TripleDouble leftTop;

    ImageParam param() const { return imageAt(leftTop, leftBottom, rightBottom); }
    std::vector<TripleDouble> corners() const { return {leftBottom, rightBottom, leftTop}; }
};

Picture pictureIn(const Frame& frame, const TripleDouble& leftBottom, double width, double height) {
    return {leftBottom, plus(leftBottom, times(frame.x, width)), plus(leftBottom, times(frame.y, height))};
}

std::vector<ImageParam> params(const std::vector<Picture>& pictures) {
    std::vector<ImageParam> images;
    for (const Picture& picture : pictures)
        images.push_back(picture.param());
    return images;
}

std::vector<TripleDouble> cornersOf(const ExportedImage& image) {
    return {image.leftBottom, image.rightBottom, image.leftTop};
}

// Where a point of the drawing in space lies in the flattened one.
TripleDouble flattened(const TripleDouble& point, const TripleDouble& origin, const Frame& frame) {
    const TripleDouble moved = minus(point, origin);
    return {dot(frame.x, moved), dot(frame.y, moved) + origin.z, dot(frame.z, moved)};
}

double magnitude(const TripleDouble& a) {
    return largestDifference(a, {0, 0, 0});
}

// The distance from `value` to the next number above.
double unitInTheLastPlace(double value) {
    return std::nextafter(value, infinity) - value;
}

// How far the four edges of an image's frame are from its picture, at most.
double frameOffPicture(const ExportedDrawing& drawing, std::size_t image) {
    const ExportedImage& picture = drawing.images[image];
    const TripleDouble rightTop = plus(picture.rightBottom, minus(picture.leftTop, picture.leftBottom));
    const TripleDouble ends[4][2] = {{picture.leftBottom, picture.rightBottom},
                                     {picture.leftBottom, picture.leftTop},
                                     {picture.rightBottom, rightTop},
                                     {picture.leftTop, rightTop}};
    double largest = 0.0;
    for (std::size_t edge = 0; edge < 4; ++edge) {
        const ExportedLine& line = drawing.lines[6 * image + edge];
        largest = std::max({largest, largestDifference(line.start, ends[edge][0]),
                            largestDifference(line.end, ends[edge][1])});
    }
    return largest;
}

double largestCoordinate(const ExportedDrawing& drawing) {
    double largest = 0.0;
    for (const ExportedLine& line : drawing.lines)
        largest = std::max({largest, magnitude(line.start), magnitude(line.end)});
    return largest;
}

// What is proposed for some images.
struct Proposal {
    RasterPlanWriter::ErrorEnum result;
    TripleDouble origin{7, 7, 7};
    TripleDouble xAxis{8, 8, 8};
    TripleDouble yAxis{9, 9, 9};
};

Proposal proposed(const std::vector<ImageParam>& images) {
    RasterPlanWriter facade;
    for (const ImageParam& image : images)
        EXPECT_EQ(facade.add(image), RasterPlanWriter::Success);
    Proposal plane{};
    plane.result = facade.calcMiddledImagePlaneReferenceCoordSystem3D(plane.origin, plane.xAxis, plane.yAxis);
    return plane;
}

Proposal proposed(const std::vector<Picture>& pictures) {
    return proposed(params(pictures));
}

void expectUntouched(const Proposal& plane) {
    EXPECT_EQ(plane.origin, TripleDouble(7, 7, 7));
    EXPECT_EQ(plane.xAxis, TripleDouble(8, 8, 8));
    EXPECT_EQ(plane.yAxis, TripleDouble(9, 9, 9));
}

// Flattens a wall with these axes, and says whether the output file was touched.
class FlattenWith {
public:
    FlattenWith()
        : m_facade(wideTextOf(utf8FromPath(m_folder / "drawing.dxf")).c_str()) {
        EXPECT_EQ(m_facade.add(pictureIn(wall, {2, 0, 13}, 6, 4).param()), RasterPlanWriter::Success);
    }

    RasterPlanWriter::ErrorEnum operator()(const TripleDouble& origin, const TripleDouble& xAxis,
                                           const TripleDouble& yAxis) {
        return m_facade.create2DDxf(origin, xAxis, yAxis);
    }

    bool touched() const { return exists(m_folder / "drawing.dxf"); }

private:
    TestFolder m_folder;
    RasterPlanWriter m_facade;
};

} // namespace

TEST(ProposedPlane, OfOneImageIsItsOwn) {
    const Proposal plane = proposed({pictureIn({{1, 0, 0}, {0, 0, 1}, {0, -1, 0}}, {1, 2, 3}, 4, 2)});
    EXPECT_EQ(plane.result, RasterPlanWriter::Success);
    EXPECT_EQ(plane.origin, TripleDouble(1, 2, 3));
    EXPECT_EQ(plane.xAxis, TripleDouble(1, 0, 0));
    EXPECT_EQ(plane.yAxis, TripleDouble(0, 0, 1));
}

TEST(ProposedPlane, OfCoplanarImagesStartsAtTheLeftmostCorner) {
    const Proposal plane = proposed({pictureIn(wall, {4, 5, 1}, 3, 2), pictureIn(wall, {-2, 5, 7}, 3, 2)});
    EXPECT_EQ(plane.result, RasterPlanWriter::Success);
    EXPECT_EQ(plane.origin, TripleDouble(-2, 5, 7));
    EXPECT_EQ(plane.xAxis, TripleDouble(1, 0, 0));
    EXPECT_EQ(plane.yAxis, TripleDouble(0, 0, 1));
}

TEST(ProposedPlane, OfParallelImagesLiesInTheMiddle) {
    const Proposal plane = proposed({pictureIn(wall, {4, 5, 1}, 3, 2), pictureIn(wall, {-2, 8, 7}, 3, 2),
                                     pictureIn(wall, {9, 11, 3}, 3, 2)});
    EXPECT_EQ(plane.result, RasterPlanWriter::Success);
    EXPECT_EQ(plane.origin, TripleDouble(-2, 8, 7));
}

TEST(ProposedPlane, OfEqualLocalXTakesTheImageAddedFirst) {
    const Picture low = pictureIn(wall, {1, 5, 0}, 3, 2);
    const Picture high = pictureIn(wall, {1, 5, 3}, 3, 2);
    const Picture right = pictureIn(wall, {5, 5, 0}, 3, 2);
    EXPECT_EQ(proposed({right, low, high}).origin, TripleDouble(1, 5, 0));
    EXPECT_EQ(proposed({right, high, low}).origin, TripleDouble(1, 5, 3));
}

TEST(ProposedPlane, OfOppositeNormalsIsNone) {
    const Frame up{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    const Frame down{{1, 0, 0}, {0, -1, 0}, {0, 0, -1}};
    const Proposal plane = proposed({pictureIn(up, {0, 0, 0}, 3, 2), pictureIn(down, {9, 0, 0}, 3, 2)});
    EXPECT_EQ(plane.result, RasterPlanWriter::InvalidGeometry);
    expectUntouched(plane);
}

TEST(ProposedPlane, OfOppositeDirectionsIsNone) {
    const Frame up{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    const Frame turned{{-1, 0, 0}, {0, -1, 0}, {0, 0, 1}};
    const Proposal plane = proposed({pictureIn(up, {0, 0, 0}, 3, 2), pictureIn(turned, {9, 0, 0}, 3, 2)});
    EXPECT_EQ(plane.result, RasterPlanWriter::InvalidGeometry);
    expectUntouched(plane);
}

TEST(ProposedPlane, WhoseXAxisIsItsNormalIsNone) {
    const Frame first{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    const Frame second{{0, 0, 1}, {0, -1, 0}, {1, 0, 0}};
    const Proposal plane = proposed({pictureIn(first, {0, 0, 0}, 3, 2), pictureIn(second, {9, 0, 0}, 3, 2)});
    EXPECT_EQ(plane.result, RasterPlanWriter::InvalidGeometry);
    expectUntouched(plane);
}

// Everything is done relative to the first corner, so the bound counts units in the last place of the largest
// coordinate: one each for the corner, the difference and its way back, a few for the mean normal over that
// reach.
TEST(ProposedPlane, OfRandomSetsStartsAtTheCornerWithTheSmallestLocalX) {
    Chance chance(1);
    double worst = 0.0;
    for (int round = 0; round < 2000; ++round) {
        const Frame base = chance.frame();
        const TripleDouble place = chance.point(round % 2 == 0 ? 100.0 : 1e7);
        const double angle = round % 3 == 0 ? 0.0 : 0.05;
        std::vector<Picture> pictures;
        for (int i = chance.count(2, 9); i > 0; --i) {
            const double width = chance.between(0.5, 20);
            pictures.push_back(pictureIn(leaning(base, chance, angle), plus(place, chance.point(50)), width,
                                         chance.between(0.5, 20)));
        }
        const Proposal plane = proposed(pictures);
        ASSERT_EQ(plane.result, RasterPlanWriter::Success);

        TripleDouble normalSum;
        TripleDouble xSum;
        for (const Picture& picture : pictures) {
            const TripleDouble u = normalized(minus(picture.rightBottom, picture.leftBottom));
            const TripleDouble v = normalized(minus(picture.leftTop, picture.leftBottom));
            normalSum = plus(normalSum, normalized(cross(u, v)));
            xSum = plus(xSum, u);
        }
        const TripleDouble normal = normalized(normalSum);
        const TripleDouble x = normalized(xSum);
        EXPECT_LE(largestDifference(plane.xAxis, x), 1e-15);
        EXPECT_LE(largestDifference(plane.yAxis, cross(normal, x)), 1e-15);

        double smallest = infinity;
        double meanOffset = 0.0;
        for (const Picture& picture : pictures) {
            const TripleDouble moved = minus(picture.leftBottom, plane.origin);
            // Local x is measured in the plane: what leans out of it does not count.
            const TripleDouble inPlane = minus(moved, times(normal, dot(normal, moved)));
            const TripleDouble y = cross(normal, x);
            const TripleDouble z = normalized(cross(x, y));
            const TripleDouble across = cross(y, z);
            smallest = std::min(smallest, dot(across, inPlane) / dot(across, x));
            meanOffset += dot(normal, moved) / static_cast<double>(pictures.size());
        }
        const double unit = unitInTheLastPlace(magnitude(place) + 100.0);
        worst = std::max({worst, std::fabs(smallest) / unit, std::fabs(meanOffset) / unit});
        ASSERT_LE(std::fabs(smallest), 8 * unit) << round;
        ASSERT_LE(std::fabs(meanOffset), 8 * unit) << round;
    }
    RecordProperty("worst_units_in_the_last_place", std::to_string(worst));
}

// A corner is rounded on its way at survey coordinates (set, moved, and set again from its edges) and in the
// plane (through the matrix, lifted, as pixel vector times pixel count): a dozen roundings of half a unit
// each, and as much again for the directions, which are normalised three times and inverted once.
TEST(Flattened, RandomSetsKeepTheirShapeAndLieWhereThePlaneSays) {
    Chance chance(2);
    double worst = 0.0;
    for (int round = 0; round < 300; ++round) {
        const double reach = round % 2 == 0 ? 100.0 : 1e7;
        const Frame frame = chance.frame();
        const TripleDouble place = chance.point(reach);
        const TripleDouble origin = plus(place, chance.point(50));
        std::vector<Picture> pictures;
        for (int i = chance.count(1, 6); i > 0; --i) {
            const double width = chance.between(0.5, 20);
            pictures.push_back(
                pictureIn(chance.frame(), plus(place, chance.point(50)), width, chance.between(0.5, 20)));
        }
        const ExportedDrawing drawing =
            exported2D(params(pictures), origin, times(frame.x, chance.between(0.001, 1000)),
                       times(frame.y, chance.between(0.001, 1000)));
        ASSERT_EQ(drawing.images.size(), pictures.size());

        const double unit = unitInTheLastPlace(reach + 100.0);
        std::vector<TripleDouble> before;
        std::vector<TripleDouble> after;
        for (std::size_t i = 0; i < pictures.size(); ++i) {
            for (const TripleDouble& corner : pictures[i].corners())
                before.push_back(corner);
            for (const TripleDouble& corner : cornersOf(drawing.images[i]))
                after.push_back(corner);
        }
        for (std::size_t i = 0; i < before.size(); ++i) {
            const double off = largestDifference(after[i], flattened(before[i], origin, frame));
            worst = std::max(worst, off / unit);
            ASSERT_LE(off, 8 * unit) << round;
            for (std::size_t k = 0; k < i; ++k)
                ASSERT_LE(std::fabs(distance(after[i], after[k]) - distance(before[i], before[k])), 8 * unit)
                    << round;
        }
    }
    RecordProperty("worst_units_in_the_last_place", std::to_string(worst));
}

TEST(Flattened, CornerIsMovedTurnedAndLifted) {
    const ExportedDrawing drawing =
        exported2D({pictureIn(wall, {2, 0, 13}, 6, 4).param()}, {0, 0, 10}, {1, 0, 0}, {0, 0, 1});
    EXPECT_EQ(drawing.images[0].leftBottom, TripleDouble(2, 13, 0));
    EXPECT_EQ(drawing.lines[0].start, TripleDouble(2, 13, 0));
    EXPECT_EQ(drawing.lines[0].end, TripleDouble(8, 13, 0));
    EXPECT_EQ(drawing.lines[1].end, TripleDouble(2, 17, 0));
}

TEST(Flattened, YIsLiftedWhateverTheAxes) {
    // Lying: the drawing's y is the site's y, and is lifted all the same.
    const ExportedDrawing drawing = exported2D({lyingAt(1, 2, 10)}, {0, 0, 10}, {1, 0, 0}, {0, 1, 0});
    EXPECT_EQ(drawing.images[0].leftBottom, TripleDouble(1, 12, 0));
    EXPECT_EQ(drawing.lines[0].start, TripleDouble(1, 12, 0));
}

TEST(Flattened, ViewIsNotTwisted) {
    const std::vector<ImageParam> images = {pictureIn(wall, {2, 0, 13}, 6, 4).param()};
    EXPECT_NE(exported3D(images).first("VPORT").value(51), "0.00000000000000000");
    const ExportedDrawing drawing = exported2D(images, {0, 0, 10}, {1, 0, 0}, {0, 0, 1});
    const DxfRecord& view = drawing.first("VPORT");
    EXPECT_EQ(view.value(51), "0.00000000000000000");
    EXPECT_EQ(view.value(36), "1.00000000000000000");
    EXPECT_EQ(view.value(17), "5.00000000000000000");
    EXPECT_EQ(view.value(27), "15.00000000000000000");
}

TEST(Flattened, KeepsPathUnitAndResolution) {
    ImageParam image = pictureIn(wall, {2, 0, 13}, 6, 4).param();
    image.setImagePath(L"D:\\S\u00FCd.png");
    image.setDrawingUnit(Feet);
    image.setNumberPixelPerUnit(12.5);
    const ExportedDrawing drawing = exported2D({image}, {0, 0, 10}, {1, 0, 0}, {0, 0, 1});
    EXPECT_EQ(drawing.images[0].path, "D:\\S\xC3\xBC"
                                      "d.png");
    EXPECT_EQ(drawing.variable("$INSUNITS").front(), "2");
    EXPECT_EQ(drawing.first("IMAGE").value(13), "75.00000000000000000");
    EXPECT_EQ(drawing.first("IMAGE").value(23), "50.00000000000000000");
}

TEST(FlattenedFrames, LieExactlyOnPicturesWhereTheArithmeticIsExact) {
    std::vector<ImageParam> images;
    for (int i = 0; i < 12; ++i)
        images.push_back(pictureIn(wall, {7.0 * i, 0.25 * i, 100.0 + i}, 6, 4).param());
    const ExportedDrawing drawing = exported2D(images, {3, 1, 95.5}, {1, 0, 0}, {0, 0, 1});
    for (std::size_t i = 0; i < images.size(); ++i)
        EXPECT_EQ(frameOffPicture(drawing, i), 0.0) << i;
}

// Frame and picture start from the same moved corners, whose coordinates are no larger than the drawing's. A
// frame's end then passes once through one matrix, the picture's corner through another that is the same up
// to its own last digits, is set again as direction and length twice, and is read back as pixel vector times
// pixel count. There are eight steps, and none is off by more than a unit in the last place of the drawing's
// largest coordinate: half a unit for the result, half for partial sums that are up to twice as large.
TEST(FlattenedFrames, LieOnPicturesToEightUnitsInTheLastPlace) {
    // Three to the east, four to the north: corners on a grid give every picture the very same directions.
    const TripleDouble along(3, 4, 0);
    Chance chance(3);
    double worst = 0.0;
    for (int round = 0; round < 300; ++round) {
        const auto onGrid = [&](double reach) {
            return std::ldexp(std::floor(chance.between(-reach, reach)), -10);
        };
        const double reach = round % 2 == 0 ? 1e5 : 1e10;
        const TripleDouble place(onGrid(reach), onGrid(reach), onGrid(reach));
        std::vector<Picture> pictures;
        for (int i = chance.count(2, 8); i > 0; --i) {
            const TripleDouble corner = plus(plus(place, times(along, onGrid(8000))), {0, 0, onGrid(15000)});
            pictures.push_back({corner, plus(corner, times(along, 0.25 * chance.count(1, 16))),
                                plus(corner, {0, 0, 0.25 * chance.count(1, 80)})});
        }
        const ExportedDrawing drawing = exported2D(params(pictures));
        const double unit = unitInTheLastPlace(largestCoordinate(drawing));
        for (std::size_t i = 0; i < pictures.size(); ++i) {
            const double off = frameOffPicture(drawing, i);
            worst = std::max(worst, off / unit);
            ASSERT_LE(off, 8 * unit) << round;
        }
    }
    RecordProperty("worst_units_in_the_last_place", std::to_string(worst));
}

// Corners that are rounded at survey coordinates give each picture directions of its own: off by a unit in
// the last place of the site over the edge's length, which counts over the drawing's whole reach.
TEST(FlattenedFrames, LieOnPicturesAsWellAsTheCornersAreGiven) {
    Chance chance(6);
    constexpr double shortestEdge = 0.5;
    double worst = 0.0;
    for (int round = 0; round < 300; ++round) {
        const double turn = chance.between(0, 6.28);
        const TripleDouble along(std::cos(turn), std::sin(turn), 0);
        const Frame facade{along, {0, 0, 1}, cross(along, {0, 0, 1})};
        const TripleDouble place = chance.point(1e7);
        std::vector<Picture> pictures;
        for (int i = chance.count(2, 8); i > 0; --i) {
            const TripleDouble corner =
                plus(place, plus(times(along, chance.between(0, 40)), {0, 0, chance.between(0, 15)}));
            const double width = chance.between(shortestEdge, 20);
            pictures.push_back(pictureIn(facade, corner, width, chance.between(shortestEdge, 20)));
        }
        const ExportedDrawing drawing = exported2D(params(pictures));
        const double bound = unitInTheLastPlace(1e7) * 60 / shortestEdge;
        for (std::size_t i = 0; i < pictures.size(); ++i) {
            const double off = frameOffPicture(drawing, i);
            worst = std::max(worst, off / bound);
            ASSERT_LE(off, bound) << round;
        }
    }
    RecordProperty("worst_share_of_the_bound", std::to_string(worst));
}

TEST(FlattenedFrames, ShowAbsoluteHeightsOnY) {
    Chance chance(4);
    for (int round = 0; round < 100; ++round) {
        const double turn = chance.between(0, 6.28);
        const TripleDouble along(std::cos(turn), std::sin(turn), 0);
        const Frame facade{along, {0, 0, 1}, cross(along, {0, 0, 1})};
        std::vector<Picture> pictures;
        for (int i = 0; i < 3; ++i)
            pictures.push_back(pictureIn(facade, chance.point(1000), 5, 4));
        const ExportedDrawing drawing = exported2D(params(pictures));
        for (std::size_t i = 0; i < pictures.size(); ++i) {
            const double bottom = pictures[i].leftBottom.z;
            EXPECT_NEAR(drawing.images[i].leftBottom.y, bottom, 1e-12);
            EXPECT_NEAR(drawing.images[i].leftTop.y, bottom + 4, 1e-12);
            EXPECT_NEAR(drawing.lines[6 * i].start.y, bottom, 1e-12);
            EXPECT_NEAR(drawing.lines[6 * i + 1].end.y, bottom + 4, 1e-12);
        }
    }
}

TEST(FlattenedFrames, KeepTheirOwnImagesAxesWhereTheseAreNotThePlanes) {
    // Turned by a right angle in the plane: x comes from the plane, but y and z from the image's own axes.
    const Frame turned{{0, 0, 1}, {-1, 0, 0}, {0, -1, 0}};
    const ExportedDrawing drawing =
        exported2D({pictureIn(turned, {5, 0, 2}, 3, 1).param()}, {0, 0, 0}, {1, 0, 0}, {0, 0, 1});
    EXPECT_EQ(drawing.images[0].leftBottom, TripleDouble(5, 2, 0));
    EXPECT_EQ(drawing.images[0].rightBottom, TripleDouble(5, 5, 0));
    EXPECT_EQ(drawing.lines[0].start, TripleDouble(5, -5, 0));
    EXPECT_EQ(drawing.lines[0].end, TripleDouble(5, -5, 0));
    EXPECT_EQ(drawing.lines[1].end, TripleDouble(4, -4, 0));
}

TEST(FlattenedStructure, OfEveryKindOfSetIsWhole) {
    Chance chance(5);
    for (const double angle : {0.0, 0.03}) {
        for (const double depth : {0.0, 5.0}) {
            std::vector<Picture> pictures;
            for (int i = 0; i < 5; ++i)
                pictures.push_back(
                    pictureIn(leaning(wall, chance, angle), {4.0 * i, depth * i, 1.0 * i}, 3, 2));
            EXPECT_EQ(structureFindings(exported2D(params(pictures)).bytes, framedImages(5)),
                      std::vector<std::string>());
        }
    }
}

TEST(BadPlane, ZeroAxesThrowBeforeAnythingIsOpened) {
    FlattenWith flatten;
    EXPECT_THROW(flatten({0, 0, 10}, {0, 0, 0}, {0, 0, 1}), std::exception);
    EXPECT_THROW(flatten({0, 0, 10}, {1, 0, 0}, {0, 0, 0}), std::exception);
    EXPECT_THROW(flatten({0, 0, 10}, {0, 0, 0}, {0, 0, 0}), std::exception);
    EXPECT_FALSE(flatten.touched());
}

TEST(BadPlane, EqualAxesAreSingularAndThrowBeforeAnythingIsOpened) {
    FlattenWith flatten;
    EXPECT_THROW(flatten({0, 0, 10}, {1, 0, 0}, {1, 0, 0}), std::exception);
    EXPECT_THROW(flatten({0, 0, 10}, {0, 5, 0}, {0, -2, 0}), std::exception);
    EXPECT_FALSE(flatten.touched());
    EXPECT_EQ(flatten({0, 0, 10}, {1, 0, 0}, {0, 0, 1}), RasterPlanWriter::Success);
}

TEST(BadPlane, EqualAxesAlongNoCoordinateAreNotRecognisedAsSingular) {
    FlattenWith flatten;
    EXPECT_EQ(flatten({0, 0, 10}, {0.48, 0.6, 0.64}, {0.48, 0.6, 0.64}), RasterPlanWriter::Success);
    EXPECT_TRUE(flatten.touched());
}

TEST(BadPlane, NanAndInfiniteAxesThrowBeforeAnythingIsOpened) {
    FlattenWith flatten;
    for (const double value : {notANumber, infinity, -infinity}) {
        EXPECT_THROW(flatten({0, 0, 10}, {value, 0, 0}, {0, 0, 1}), std::exception);
        EXPECT_THROW(flatten({0, 0, 10}, {1, 0, 0}, {0, 0, value}), std::exception);
        EXPECT_THROW(flatten({0, 0, 10}, {value, value, value}, {0.48, 0.6, 0.64}), std::exception);
    }
    EXPECT_FALSE(flatten.touched());
}

TEST(BadPlane, OriginFarOffLeavesImagesOut) {
    const ImageParam level = imageAt({1, 2, 5}, {1, 2, 3}, {5, 2, 3});
    const ImageParam oblique = imageAt({0.82, 1.16, 1.9}, {0.1, 0.2, 0.3}, {2.5, -1.6, 0.3});
    const auto write = [&](double far) {
        return exported2D({level, oblique}, {far, 0, 0}, {1, 0, 0}, {0, 0, 1});
    };
    EXPECT_EQ(write(1e12).images.size(), 2u);
    EXPECT_EQ(write(1e15).images.size(), 1u);
    EXPECT_THROW(exported2D({oblique}, {1e15, 0, 0}, {1, 0, 0}, {0, 0, 1}), std::runtime_error); // DxfFailure
}

TEST(BadPlane, AxesMayHaveAnyUsualLength) {
    FlattenWith flatten;
    for (const double length : {1e-300, 1e-150, 1e150})
        EXPECT_EQ(flatten({0, 0, 10}, {length, 0, 0}, {0, 0, length}), RasterPlanWriter::Success) << length;
    FlattenWith overflowing;
    EXPECT_THROW(overflowing({0, 0, 10}, {1e160, 0, 0}, {0, 0, 1}), std::exception);
    EXPECT_FALSE(overflowing.touched());
}

TEST(BadPlane, OriginSoFarThatTheImagesVanishThrows) {
    FlattenWith flatten;
    EXPECT_THROW(flatten({1e20, 0, 1e20}, {1, 0, 0}, {0, 0, 1}), std::exception);
    EXPECT_FALSE(flatten.touched());
}
