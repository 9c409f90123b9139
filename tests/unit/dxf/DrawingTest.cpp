#include "dxf/Drawing.h"

#include "support/Images.h"
#include "support/Numbers.h"
#include "support/WrittenBytes.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

using namespace rasterplan;
using namespace rasterplan::test;

namespace {

struct Segment {
    MathPoint3d start;
    MathPoint3d end;

    friend bool operator==(const Segment&, const Segment&) = default;
    friend void PrintTo(const Segment& segment, std::ostream* out) {
        for (const MathPoint3d& point : {segment.start, segment.end})
            *out << '(' << point.x << ", " << point.y << ", " << point.z << ") ";
    }
};

std::vector<Segment> segmentsOf(const ImageParam& image) {
    Drawing drawing;
    EXPECT_TRUE(drawing.add(image));
    std::vector<Segment> segments;
    for (const DxfLineObj& line : drawing.images.head()->frameLines())
        segments.push_back({line.createSection(Handle{}).start, line.createSection(Handle{}).end});
    return segments;
}

// The record of the viewport.
std::string viewOf(const Drawing& drawing) {
    return writtenBytes([&](OutputBuffer& out) { drawing.viewport.createSection().render(out); });
}

} // namespace

TEST(Drawing, DrawsFrameAndMarks) {
    const MathPoint3d leftBottom(10, 20, 5);
    const MathPoint3d rightBottom(90, 20, 5);
    const MathPoint3d leftTop(10, 60, 5);
    const MathPoint3d rightTop(90, 60, 5);
    EXPECT_EQ(segmentsOf(levelImage({10, 20, 5}, 80, 40)),
              (std::vector<Segment>{{leftBottom, rightBottom},
                                    {leftBottom, leftTop},
                                    {rightBottom, rightTop},
                                    {leftTop, rightTop},
                                    {{6, 20, 5}, {8, 20, 5}},
                                    {{10, 16, 5}, {10, 18, 5}}}));
}

TEST(Drawing, FrameAndMarksHaveTheSameBitsEverywhere) {
    const std::vector<Segment> segments =
        segmentsOf(imageAt({1.5, 2.1, -3.0}, {0.1, 0.7, -2.3}, {0.7, 0.4, -1.7}));
    EXPECT_EQ(segments[2].end,
              MathPoint3d(0x1.0cccccccccccdp+1, 0x1.ccccccccccccdp+0, -0x1.3333333333334p+1));
    EXPECT_EQ(segments[4], (Segment{{0x1.eb851eb851eb8p-6, 0x1.7851eb851eb85p-1, -0x1.2f5c28f5c28f5p+1},
                                    {0x1.0a3d70a3d70a4p-4, 0x1.6f5c28f5c28f5p-1, -0x1.2ae147ae147aep+1}}));
    EXPECT_EQ(segments[5], (Segment{{0x1.eb851eb851ebcp-6, 0x1.428f5c28f5c28p-1, -0x1.21eb851eb851ep+1},
                                    {0x1.0a3d70a3d70a4p-4, 0x1.547ae147ae147p-1, -0x1.2428f5c28f5c2p+1}}));
}

TEST(Drawing, LongerSideGivesTheLengthOfBothMarks) {
    for (const auto& [width, height] :
         {std::pair(80.0, 40.0), std::pair(40.0, 80.0), std::pair(80.0, 80.0)}) {
        const std::vector<Segment> segments = segmentsOf(levelImage({0, 0, 0}, width, height));
        EXPECT_EQ(segments[4], (Segment{{-4, 0, 0}, {-2, 0, 0}}));
        EXPECT_EQ(segments[5], (Segment{{0, -4, 0}, {0, -2, 0}}));
        EXPECT_EQ(distance(segments[4].start, segments[4].end), 80.0 / 40);
    }
}

TEST(Drawing, KeepsImagesInTheirOrder) {
    Drawing drawing;
    for (int i = 0; i < 100; ++i)
        ASSERT_TRUE(drawing.add(levelImage({10.0 * i, 0, 0}, 4, 2)));
    EXPECT_EQ(drawing.images.count(), 100);
    double x = 0;
    for (const DxfImageObj& image : drawing.images) {
        EXPECT_EQ(image.getImageParam().getLeftBottomCorner().x, x);
        x += 10;
    }
}

TEST(Drawing, WidensTheView) {
    Drawing drawing;
    ASSERT_TRUE(drawing.add(levelImage({0, 0, 0}, 4, 2)));
    const std::string one = viewOf(drawing);
    EXPECT_NE(one.find("\n40\r\n2.00000000000000000\r\n41\r\n2.00000000000000000\r\n"), std::string::npos);
    ASSERT_TRUE(drawing.add(levelImage({6, 0, 0}, 4, 2)));
    EXPECT_NE(viewOf(drawing).find("\n40\r\n2.00000000000000000\r\n41\r\n5.00000000000000000\r\n"),
              std::string::npos);
}

TEST(Drawing, RefusedImageChangesNothing) {
    Drawing drawing;
    ASSERT_TRUE(drawing.add(levelImage({0, 0, 0}, 4, 2)));
    const std::string view = viewOf(drawing);
    for (const ImageParam& image : {
             ImageParam(),                                                  // no corners at all
             imageAt({0, 1e-10, 0}, {0, 0, 0}, {9, 0, 0}),                  // too low
             imageAt({0, 9, 0}, {0, 0, 0}, {1e-10, 0, 0}),                  // too narrow
             imageAt({0.0011, 1, 0}, {0, 0, 0}, {1, 0, 0}),                 // not rectangular
             imageAt({-0.0011, 1, 0}, {0, 0, 0}, {1, 0, 0}),                //
             imageAt({2, 0, 0}, {0, 0, 0}, {1, 0, 0}),                      // both edges in one direction
             imageAt({notANumber, 1, 0}, {0, 0, 0}, {1, 0, 0}),             //
             imageAt({0, 1, 0}, {0, 0, notANumber}, {1, 0, 0}),             //
             imageAt({0, 1, 0}, {0, 0, 0}, {1, notANumber, 0}),             //
             imageAt({0, infinity, 0}, {0, 0, 0}, {1, 0, 0}),               //
             imageAt({0, 1, 0}, {-infinity, 0, 0}, {1, 0, 0}),              //
             imageAt({0, 1, infinity}, {0, 0, infinity}, {1, 0, infinity}), //
             imageAt({0, 1e200, 0}, {0, 0, 0}, {1e200, 0, 0}), // lengths beyond the largest double
         })
        EXPECT_FALSE(drawing.add(image)) << image.getImgWidth() << " x " << image.getImgHeight();
    EXPECT_EQ(drawing.images.count(), 1);
    EXPECT_EQ(viewOf(drawing), view);
}

TEST(Drawing, NearlyRectangularImageIsTaken) {
    for (const ImageParam& image : {
             imageAt({0.0009, 1, 0}, {0, 0, 0}, {1, 0, 0}),
             imageAt({-0.0009, 1, 0}, {0, 0, 0}, {1, 0, 0}),
             imageAt({0, 1.1e-10, 0}, {0, 0, 0}, {1.1e-10, 0, 0}),
         }) {
        Drawing drawing;
        EXPECT_TRUE(drawing.add(image)) << image.getImgWidth() << " x " << image.getImgHeight();
    }
}
