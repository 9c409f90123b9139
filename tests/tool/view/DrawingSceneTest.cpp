#include "view/DrawingScene.h"

#include "base/Failure.h"
#include "tool/TestFiles.h"

#include <gtest/gtest.h>

namespace rasterplan_tool {
namespace {

using Groups = std::vector<std::pair<int, std::string>>;

std::string textOf(const Groups& groups) {
    std::string text;
    for (const auto& [code, value] : groups)
        text += std::to_string(code) + '\n' + value + '\n';
    return text;
}

Groups image() {
    return {{0, "IMAGE"}, {5, "84"}, {10, "1"},    {20, "2"},  {30, "3"},  {11, "0.5"}, {21, "0"}, {31, "0"},
            {12, "0"},    {22, "0"}, {32, "0.25"}, {13, "40"}, {23, "20"}, {340, "85"}, {70, "7"}};
}

Groups with(Groups groups, int code, const std::string& value) {
    for (auto& group : groups)
        if (group.first == code)
            group.second = value;
    return groups;
}

Groups viewport() {
    return {{0, "VPORT"}, {2, "*ACTIVE"}, {12, "0"}, {22, "0"},  {16, "0"},   {26, "-2"}, {36, "0"},
            {17, "5"},    {27, "6"},      {37, "7"}, {40, "10"}, {41, "1.5"}, {51, "0"}};
}

// A drawing with these records in its model space.
std::string drawingText(const Groups& entities, const Groups& view = viewport(),
                        const std::string& path = "süd.png") {
    return textOf({{0, "SECTION"}, {2, "HEADER"}, {9, "$INSUNITS"}, {70, " 6"}, {0, "ENDSEC"}}) +
           textOf({{0, "SECTION"}, {2, "TABLES"}, {0, "TABLE"}, {2, "VPORT"}}) + textOf(view) +
           textOf({{0, "ENDTAB"}, {0, "ENDSEC"}, {0, "SECTION"}, {2, "ENTITIES"}}) + textOf(entities) +
           textOf({{0, "ENDSEC"}, {0, "SECTION"}, {2, "OBJECTS"}, {0, "IMAGEDEF"}, {5, "85"}, {1, path}}) +
           textOf({{0, "ENDSEC"}, {0, "EOF"}});
}

DrawingScene sceneOf(const std::string& text) {
    const TestFolder folder;
    return readScene(writeFile(folder / "site.dxf", text));
}

std::string failureOfScene(const std::string& text) {
    try {
        sceneOf(text);
    } catch (const BadInput& failure) {
        const std::string what = failure.what();
        return what.substr(what.find("site.dxf") + 8);
    }
    return "no failure";
}

void expectTriple(const TripleDouble& a, double x, double y, double z) {
    EXPECT_NEAR(a.x, x, 1e-12);
    EXPECT_NEAR(a.y, y, 1e-12);
    EXPECT_NEAR(a.z, z, 1e-12);
}

} // namespace

TEST(DrawingScene, HoldsPicturesInTheirPlaces) {
    const DrawingScene scene = sceneOf(drawingText(image(), viewport(), "s\\U+00FCd.png"));
    ASSERT_EQ(scene.pictures.size(), 1U);
    const ScenePicture& picture = scene.pictures.front();
    EXPECT_EQ(picture.path, "süd.png");
    expectTriple(picture.leftBottom, 1, 2, 3);
    expectTriple(picture.pixelU, 0.5, 0, 0);
    expectTriple(picture.pixelV, 0, 0, 0.25);
    EXPECT_EQ(picture.pixelsAcross, 40);
    EXPECT_EQ(picture.pixelsUpright, 20);
    EXPECT_TRUE(picture.isShown);
    EXPECT_EQ(scene.unit, "m");
}

TEST(DrawingScene, UnitIsASymbolOrAName) {
    const std::string inMeters = drawingText(image());
    const struct {
        const char* insunits;
        const char* unit;
    } cases[] = {{"2", "ft"},         {"21", "USSurveyFeet"},
                 {"11", "Angstroms"}, {"0", ""},
                 {"22", ""},          {"-1", ""},
                 {"1e300", ""},       {"x", ""}};
    for (const auto& each : cases) {
        std::string text = inMeters;
        text.replace(text.find(" 6"), 2, each.insunits);
        EXPECT_EQ(sceneOf(text).unit, each.unit) << each.insunits;
    }
}

TEST(DrawingScene, PictureMayBeSwitchedOffOrWithoutDefinition) {
    EXPECT_FALSE(sceneOf(drawingText(with(image(), 70, "6"))).pictures.front().isShown);
    EXPECT_EQ(sceneOf(drawingText(with(image(), 340, "99"))).pictures.front().path, "");
}

TEST(DrawingScene, HoldsLines) {
    const DrawingScene scene =
        sceneOf(drawingText({{0, "LINE"}, {10, "1"}, {20, "2"}, {30, "3"}, {11, "4"}, {21, "5"}, {31, "6"}}));
    ASSERT_EQ(scene.lines.size(), 1U);
    expectTriple(scene.lines.front().start, 1, 2, 3);
    expectTriple(scene.lines.front().end, 4, 5, 6);
}

TEST(DrawingScene, LeavesOutPaperSpace) {
    Groups onPaper = image();
    onPaper.emplace_back(67, "1");
    EXPECT_TRUE(sceneOf(drawingText(onPaper)).pictures.empty());
}

TEST(DrawingScene, ViewportLooksAtItsTarget) {
    const SceneViewport view = sceneOf(drawingText(image())).viewport.value();
    expectTriple(view.target, 5, 6, 7);
    expectTriple(view.towards, 0, -1, 0);
    expectTriple(view.up, 0, 0, 1);
    EXPECT_EQ(view.height, 10);
    EXPECT_EQ(view.ratio, 1.5);
}

TEST(DrawingScene, ViewportIsTurnedByItsTwist) {
    // Twisted by 90 degrees what pointed to the right points upwards.
    const SceneViewport view = sceneOf(drawingText(image(), with(viewport(), 51, "90"))).viewport.value();
    expectTriple(view.up, 1, 0, 0);
}

TEST(DrawingScene, ViewportFromAboveHasNorthUpwards) {
    Groups above = with(with(viewport(), 26, "0"), 36, "3");
    expectTriple(sceneOf(drawingText(image(), above)).viewport.value().up, 0, 1, 0);
    above = with(with(above, 12, "2"), 22, "1");
    expectTriple(sceneOf(drawingText(image(), above)).viewport.value().target, 7, 7, 7);
}

TEST(DrawingScene, ViewportMayBeMissing) {
    EXPECT_FALSE(sceneOf(drawingText(image(), with(viewport(), 26, "0"))).viewport.has_value());
    EXPECT_FALSE(sceneOf(drawingText(image(), with(viewport(), 2, "left"))).viewport.has_value());
}

TEST(DrawingScene, SaysWhereADrawingIsBroken) {
    EXPECT_EQ(failureOfScene(drawingText(with(image(), 13, "many"))),
              "\", line 53: the IMAGE has no number at code 13; write or save the drawing again");
    EXPECT_EQ(failureOfScene(drawingText(with(image(), 11, "0"))),
              "\", line 53: the IMAGE has no area; take it out or give it one in the program that wrote the "
              "drawing");
    EXPECT_NE(failureOfScene("0\nSECTION\n").find("; this is no whole DXF drawing: write or save it again"),
              std::string::npos);
    EXPECT_EQ(failureOfScene("AC1024 and more"), "\": this is a DWG drawing; save it as text DXF");
    EXPECT_EQ(failureOfScene("AutoCAD Binary DXF\r\n\x1a" + std::string(1, '\0')),
              "\": this is a binary DXF; save it as text DXF");
}

TEST(DrawingScene, SaysThatThereIsNoDrawing) {
    const TestFolder folder;
    EXPECT_THROW(readScene(folder / "none.dxf"), BadInput);
    EXPECT_THROW(readScene(folder.path()), BadInput);
}

} // namespace rasterplan_tool
