#include "view/Page.h"

#include "tool/TestFiles.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <sstream>

namespace rasterplan_tool {
namespace {

using Json = nlohmann::json;

ScenePicture pictureAt(double x, double y, double z) {
    ScenePicture picture;
    picture.path = "bilder/süd.png";
    picture.leftBottom = {x, y, z};
    picture.pixelU = {0.01, 0, 0};
    picture.pixelV = {0, 0, 0.01};
    picture.pixelsAcross = 200;
    picture.pixelsUpright = 100;
    return picture;
}

std::string pageOf(const DrawingScene& scene, const std::string& title = "site.dxf",
                   const std::string& source = "süd.png") {
    std::ostringstream page;
    writePage(page, title, scene, [&source](const ScenePicture&) { return source; });
    return page.str();
}

// What the page's own script reads.
Json drawingIn(const std::string& page) {
    constexpr std::string_view begin = R"(id="drawing">)";
    const std::size_t start = page.find(begin) + begin.size();
    return Json::parse(page.substr(start, page.find("</script>", start) - start));
}

} // namespace

TEST(Page, HoldsEverythingItNeeds) {
    ASSERT_TRUE(canWritePages());
    const std::string page = pageOf({});
    EXPECT_TRUE(page.starts_with("<!DOCTYPE html>"));
    EXPECT_TRUE(page.ends_with("</html>\n"));
    EXPECT_FALSE(holds(page.substr(0, page.find("id=\"drawing\"")), "{{"));
    EXPECT_FALSE(holds(page, "src=\"http"));
    EXPECT_TRUE(holds(page, "CSS3DRenderer = function"));
    EXPECT_TRUE(holds(page, "OrbitControls = function"));
    EXPECT_TRUE(holds(page, "Permission is hereby granted"));
}

TEST(Page, CoordinatesAreNearALocalOrigin) {
    DrawingScene scene;
    scene.pictures = {pictureAt(4468215.842455544, 5333642.029, 510.34)};
    scene.lines = {{{4468215.842455544, 5333642.029, 510.34}, {4468216.842455544, 5333642.029, 510.34}}};
    const Json drawing = drawingIn(pageOf(scene));
    const Json& at = drawing["pictures"][0]["at"];
    EXPECT_EQ(drawing["origin"], Json({4468216, 5333642, 511}));
    EXPECT_NEAR(at[0].get<double>(), -0.157544456, 1e-9);
    EXPECT_NEAR(at[2].get<double>(), -0.66, 1e-9);
    EXPECT_NEAR(drawing["lines"][0][3].get<double>(), 0.842455544, 1e-9);
    EXPECT_EQ(drawing["decimals"], 3);
}

TEST(Page, HoldsPicturesAndViewport) {
    DrawingScene scene;
    scene.unit = "m";
    scene.pictures = {pictureAt(0, 0, 0), pictureAt(5, 0, 0)};
    scene.pictures.back().isShown = false;
    scene.viewport = SceneViewport{{1, 0, 2}, {0, -1, 0}, {0, 0, 1}, 4, 2};
    const Json drawing = drawingIn(pageOf(scene));
    ASSERT_EQ(drawing["pictures"].size(), 2U);
    const Json& picture = drawing["pictures"][0];
    EXPECT_EQ(picture["name"], "süd.png");
    EXPECT_EQ(picture["path"], "bilder/süd.png");
    EXPECT_EQ(picture["source"], "süd.png");
    EXPECT_EQ(picture["pixels"], Json({200, 100}));
    EXPECT_EQ(picture["u"], Json({0.01, 0, 0}));
    EXPECT_EQ(picture["isShown"], true);
    EXPECT_EQ(drawing["pictures"][1]["isShown"], false);
    EXPECT_EQ(drawing["unit"], "m");
    EXPECT_EQ(drawing["viewport"]["towards"], Json({0, -1, 0}));
    EXPECT_EQ(drawing["viewport"]["height"], 4);
    EXPECT_EQ(drawingIn(pageOf({}))["viewport"], Json());
}

TEST(Page, TextsOfTheDrawingStayTexts) {
    DrawingScene scene;
    scene.pictures = {pictureAt(0, 0, 0)};
    scene.pictures.front().path = "</script><script>alert(1)</script>\x01\xff.png";
    const std::string page = pageOf(scene, "<b>&\"amp;", "</script>");
    EXPECT_FALSE(holds(page, "alert(1)</script>"));
    EXPECT_FALSE(holds(page, "\x01"));
    EXPECT_FALSE(holds(page, "<b>"));
    EXPECT_TRUE(holds(page, "<title>&lt;b>&amp;&quot;amp;</title>"));
    EXPECT_EQ(drawingIn(page)["pictures"][0]["path"],
              "</script><script>alert(1)</script>\x01\xEF\xBF\xBD.png");
}

} // namespace rasterplan_tool
