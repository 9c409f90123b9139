#include "site/Site.h"

#include "base/Failure.h"
#include "tool/TestFiles.h"

#include <gtest/gtest.h>

#include <utility>

namespace rasterplan_tool {
namespace {

// A site of one image: upright, 2 wide and 1 high, unless a test changes its corners.
Site siteOfOne() {
    ManifestImage image;
    image.path = "a.png";
    const CornerPlace place{{0, 0, 1}, {0, 0, 0}, {2, 0, 0}, 100};
    image.place = place;
    return {{"SITE.json", Meters, {image}}, {{}}, {place}};
}

template <typename Expected, typename Work>
std::string failureOf(const Work& work) {
    try {
        work();
    } catch (const Expected& failure) {
        return failure.what();
    }
    return "no failure";
}

} // namespace

TEST(Site, SideWithoutALengthIsNamed) {
    Site site = siteOfOne();
    site.places[0].rightBottom = site.places[0].leftBottom;
    const std::string text = failureOf<BadInput>([&] { makeImages(site, {L"a.png"}); });
    EXPECT_NE(text.find("image 1 (\"a.png\"): a side of the image has no length"), std::string::npos) << text;
}

TEST(Site, OtherResultsThanAWrongShapeEndTheExport) {
    const Site site = siteOfOne();
    const std::vector<ImageParam> images = makeImages(site, {L"a.png"});
    RasterPlanWriter drawing;
    const RasterPlanWriter taken(std::move(drawing));
    // A facade that was moved from answers UnexpectedFailure.
    // NOLINTNEXTLINE(bugprone-use-after-move)
    const std::string adding = failureOf<ExportFailed>([&] { addImages(drawing, site.manifest, images); });
    EXPECT_NE(adding.find("the memory ran out or the system's file functions failed"), std::string::npos)
        << adding;
    const std::string proposing = failureOf<ExportFailed>([&] { proposePlane(drawing); });
    EXPECT_NE(proposing.find("the memory ran out or the system's file functions failed"), std::string::npos)
        << proposing;
}

} // namespace rasterplan_tool
