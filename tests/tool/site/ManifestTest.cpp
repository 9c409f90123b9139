#include "site/Manifest.h"

#include "base/Failure.h"
#include "base/PathText.h"
#include "tool/TestFiles.h"

#include <gtest/gtest.h>

namespace fs = std::filesystem;

namespace rasterplan_tool {
namespace {

constexpr const char* goodImage = R"({"path": "a.png", "leftTop": [0,0,1], "leftBottom": [0,0,0],
"rightBottom": [2,0,0], "pixelsPerUnit": 100})";

std::string failureOfManifest(const std::string& text) {
    try {
        parseManifest(text, "SITE.json");
    } catch (const BadInput& failure) {
        return failure.what();
    }
    return "no failure";
}

// One image whose field has another value.
std::string siteWith(const std::string& field, const std::string& value) {
    std::string text = "{\"images\": [{\n";
    for (const auto& [name, good] : {std::pair{"path", "\"a.png\""},
                                     {"leftTop", "[0,0,1]"},
                                     {"leftBottom", "[0,0,0]"},
                                     {"rightBottom", "[2,0,0]"},
                                     {"pixelsPerUnit", "100"},
                                     {"unit", "\"Meters\""}})
        if (name != field)
            text += '"' + std::string(name) + "\": " + good + ",\n";
    return text + '"' + field + "\": " + value + "\n}]}";
}

} // namespace

TEST(Manifest, HoldsWhatTheTextSays) {
    const Manifest manifest = parseManifest(R"({"unit": "Millimeters",
"images": [
{"path": "süd\\a.png", "leftTop": [1,2,3.5], "leftBottom": [1,2,-3], "rightBottom": [1e3,2,-3], "pixelsPerUnit": 0.25},
{"path": "b.png", "leftTop": [0,0,1], "leftBottom": [0,0,0], "rightBottom": [1,0,0], "pixelsPerUnit": 5, "unit": "Feet"}]})",
                                            "SITE.json");
    ASSERT_EQ(manifest.images.size(), 2U);
    const ManifestImage& first = manifest.images[0];
    EXPECT_EQ(first.line, 3U);
    EXPECT_EQ(first.path, "süd\\a.png");
    const CornerPlace& place = std::get<CornerPlace>(first.place);
    EXPECT_EQ(place.leftTop.z, 3.5);
    EXPECT_EQ(place.leftBottom.z, -3.0);
    EXPECT_EQ(place.rightBottom.x, 1000.0);
    EXPECT_EQ(place.pixelsPerUnit, 0.25);
    EXPECT_EQ(first.unit, Millimeters);
    EXPECT_EQ(manifest.unit, Millimeters);
    EXPECT_EQ(manifest.images[1].unit, Feet);
    EXPECT_EQ(manifest.where(1), "SITE.json:4: image 2 (\"b.png\")");
}

TEST(Manifest, NameIsWhatMessagesCallAnImage) {
    std::string text = siteWith("name", "\"Süd\\n\"");
    EXPECT_EQ(parseManifest(text, "SITE.json").images[0].name, "Süd\n");
    EXPECT_EQ(parseManifest(text, "SITE.json").where(0), "SITE.json:1: image 1 (\"Süd\\n\")");
    EXPECT_NE(failureOfManifest(siteWith("name", "\"\"")).find("field \"name\": is empty"),
              std::string::npos);
    EXPECT_NE(failureOfManifest(siteWith("name", "7")).find("field \"name\": is a number"),
              std::string::npos);
}

TEST(Manifest, SchemaAndFieldsOfTheUsersOwnArePassedOver) {
    const std::string image = std::string(goodImage).insert(1, R"("_note": 1, "_note": {}, )");
    EXPECT_EQ(
        parseManifest(R"({"$schema": 7, "_": null, "images": [)" + image + "]}", "SITE.json").images.size(),
        1U);
    EXPECT_NE(failureOfManifest(siteWith("$schema", "\"x\"")).find("has the unknown field \"$schema\""),
              std::string::npos);
}

TEST(Manifest, DirectionsOfAnImage) {
    const Manifest manifest = parseManifest(R"({"images": [{"path": "a.png", "leftBottom": [1,2,3],
"right": [0,5,0], "up": [0,0,0.5], "pixelsPerUnit": 200}]})",
                                            "SITE.json");
    const DirectionPlace& place = std::get<DirectionPlace>(manifest.images[0].place);
    EXPECT_EQ(place.leftBottom.y, 2.0);
    EXPECT_EQ(place.right.y, 5.0);
    EXPECT_EQ(place.up.z, 0.5);
    EXPECT_EQ(place.pixelsPerUnit, 200.0);
}

TEST(Manifest, ImagesOnAMap) {
    const Manifest manifest = parseManifest(R"({"images": [{"path": "a.tif"},
{"path": "a.tif", "elevation": 510.5}, {"path": "a.tif", "worldFile": "b.tfw"},
{"path": "a.tif", "plane": {"origin": [1,2,3], "xAxis": [0,2,0], "yAxis": [0,0,3], "_x": 0}}]})",
                                            "SITE.json");
    const auto place = [&](std::size_t i) { return std::get<MapPlace>(manifest.images[i].place); };
    EXPECT_EQ(place(0).worldFile, "");
    EXPECT_EQ(place(0).origin.z, 0.0);
    EXPECT_EQ(place(0).xAxis.x, 1.0);
    EXPECT_EQ(place(0).yAxis.y, 1.0);
    EXPECT_EQ(place(1).origin.z, 510.5);
    EXPECT_EQ(place(2).worldFile, "b.tfw");
    EXPECT_EQ(place(3).origin.z, 3.0);
    EXPECT_EQ(place(3).xAxis.y, 2.0);
    EXPECT_EQ(place(3).yAxis.z, 3.0);
}

TEST(Manifest, MixedAndIncompleteWaysOfPlacingAreErrors) {
    const struct {
        const char* fields;
        const char* complaint;
    } cases[] = {
        {R"("leftTop": [0,0,1], "up": [0,0,1])", "has the fields \"leftTop\" and \"up\", which place it in"},
        {R"("rightBottom": [0,0,1], "plane": {})", "has the fields \"rightBottom\" and \"plane\""},
        {R"("right": [0,0,1], "worldFile": "a.wld")", "has the fields \"right\" and \"worldFile\""},
        {R"("leftBottom": [0,0,1], "elevation": 2)", "has the fields \"leftBottom\" and \"elevation\""},
        {R"("pixelsPerUnit": 1, "worldFile": "a.wld")", "has the fields \"pixelsPerUnit\" and \"worldFile\""},
        {R"("pixelsPerUnit": 1)", "has no field \"leftTop\"; add it"},
        {R"("leftBottom": [0,0,0])", "has no field \"leftTop\"; add it"},
        {R"("right": [1,0,0])", "has no field \"leftBottom\"; add it"},
        {R"("up": [1,0,0], "leftBottom": [0,0,0])", "has no field \"right\"; add it"},
        {R"("right": [1,0,0], "up": [0,1,0], "leftBottom": [0,0,0])",
         "has no field \"pixelsPerUnit\"; add it"},
        {R"("right": [0,0,0], "up": [0,1,0], "leftBottom": [0,0,0])",
         "field \"right\": is zero; write a direction"},
        {R"("worldFile": "")", "field \"worldFile\": is empty"},
        {R"("worldFile": "a\u0001b")", "field \"worldFile\": holds a control character"},
        {R"("elevation": "2")", "field \"elevation\": holds a text; write a number"},
        {R"("elevation": 2e18)", "field \"elevation\": holds 2e+18; coordinates reach"},
        {R"("plane": 1)", "plane is a number; write an object"},
        {R"("plane": {})", "plane has no field \"origin\"; add it"},
        {R"("plane": {"orign": 1})",
         "has the unknown field \"orign\" (did you mean \"origin\"?); the fields are"},
        {R"("plane": {"origin": [0,0,0], "xAxis": [1,0,0], "yAxis": [0,0,0]})",
         "plane, field \"yAxis\": is zero"},
        {R"("elevation": 1, "plane": {"origin": [0,0,0], "xAxis": [1,0,0], "yAxis": [0,1,0]})",
         "field \"elevation\": is the height of the ground plane, but another plane is given"},
    };
    for (const auto& wrong : cases) {
        const std::string failure =
            failureOfManifest("{\"images\": [{\"path\": \"a.png\", " + std::string(wrong.fields) + "}]}");
        EXPECT_EQ(failure.find("SITE.json:1: image 1"), 0U) << failure;
        EXPECT_NE(failure.find(wrong.complaint), std::string::npos) << failure;
        EXPECT_NE(failure.find(';'), std::string::npos) << "says nothing to do: " << failure;
    }
}

TEST(Manifest, SiteWithoutAUnitHasThatOfAllItsImages) {
    const auto unitOf = [](const std::string& first, const std::string& second) {
        const std::string image = R"({"path": "a.tif")";
        return parseManifest("{\"images\": [" + image + first + "}, " + image + second + "}]}", "SITE.json")
            .unit;
    };
    EXPECT_EQ(unitOf(R"(, "unit": "ft")", R"(, "unit": "Feet")"), Feet);
    EXPECT_EQ(unitOf(R"(, "unit": "ft")", R"(, "unit": "mm")"), Meters);
    EXPECT_EQ(unitOf(R"(, "unit": "ft")", ""), Meters);
    EXPECT_EQ(
        parseManifest(R"({"unit": "mm", "images": [{"path": "a.tif", "unit": "ft"}]})", "SITE.json").unit,
        Millimeters);
}

TEST(Manifest, UnitIsMetersWithoutASayOtherwise) {
    EXPECT_EQ(parseManifest("{\"images\": [" + std::string(goodImage) + "]}", "SITE.json").images[0].unit,
              Meters);
}

TEST(Manifest, ErrorsOfTheWholeTextNameFileAndLine) {
    EXPECT_EQ(failureOfManifest(""),
              "SITE.json:1:1: this is not JSON: there is nothing in it; write {\"images\": [...]}");
    EXPECT_EQ(
        failureOfManifest("{\n\"images\": [{}, {\"path\": a.png}]}"),
        "SITE.json:2:25: image 2: this is not JSON: a.png is no value; write a number, true, false or null, "
        "and every text in quotation marks");
    EXPECT_EQ(failureOfManifest("\n[]"), "SITE.json:2: the site is a list; write an object: {...}");
    EXPECT_EQ(failureOfManifest("{}"),
              "SITE.json:1: the site has no field \"images\"; add it, for example \"images\": "
              "[{\"path\": ...}]");
    EXPECT_EQ(failureOfManifest("{\n\"images\":\n 7}"),
              "SITE.json:3: the site, field \"images\": is a number; write a list: [{...}, {...}]");
    EXPECT_EQ(
        failureOfManifest("{\"images\": []}"),
        "SITE.json:1: the site, field \"images\": is an empty list; a drawing needs at least one image");
    EXPECT_EQ(
        failureOfManifest("{\"units\": \"Feet\", \"images\": []}"),
        "SITE.json:1: the site has the unknown field \"units\" (did you mean \"unit\"?); the fields are "
        "$schema, unit, images");
    EXPECT_EQ(failureOfManifest("{\"images\": [],\n\"images\": []}"),
              "SITE.json:2: the site has the field \"images\" twice; leave one of them out");
    EXPECT_EQ(failureOfManifest("{\"images\": [7]}"),
              "SITE.json:1: image 1 is a number; write an object: {...}");
}

TEST(Manifest, MissingFieldsAreNamed) {
    for (const char* field : {"path", "leftTop", "leftBottom", "rightBottom", "pixelsPerUnit"}) {
        std::string text = siteWith("unit", "\"Feet\"");
        const std::size_t place = text.find('"' + std::string(field));
        text.erase(place, text.find('\n', place) + 1 - place);
        EXPECT_EQ(failureOfManifest(text).find("SITE.json:1: image 1 has no field \"" + std::string(field) +
                                               "\"; add it"),
                  0U)
            << failureOfManifest(text);
    }
}

TEST(Manifest, WrongValuesAreNamedWithTheirLine) {
    const struct {
        const char* field;
        const char* value;
        const char* complaint;
    } cases[] = {
        {"path", "3", "is a number"},
        {"path", "\"\"", "is empty"},
        {"path", "\"a\\nb\"", "holds a control character"},
        {"path", "\"a\\u0000b\"", "holds a control character"},
        {"path", "\"a\\u007fb\"", "holds a control character"},
        {"leftTop", "\"0,0,0\"", "is a text; write three numbers: [x, y, z]"},
        {"leftTop", "[0, 0]", "has 2 elements; write three numbers: [x, y, z]"},
        {"leftBottom", "[0, 0, 0, 0]",
         "has 4 elements; write three numbers: [x, y, z], with a point and no comma in them"},
        {"leftBottom", "[0, null, 0]", "holds null; write three numbers"},
        {"rightBottom", "[2e18, 0, 0]", "holds 2e+18; coordinates reach from -1e+18 to 1e+18"},
        {"rightBottom", "[0, 0, -2e18]", "holds -2e+18"},
        {"rightBottom", "[0.0, -0.0, 0]", "is the same point as leftBottom"},
        {"leftTop", "[0, 0, 0]", "is the same point as leftBottom"},
        {"pixelsPerUnit", "0", "is 0; write a number greater than 0"},
        {"pixelsPerUnit", "-200.5", "is -200.5; write a number greater than 0"},
        {"pixelsPerUnit", "1e19", "is 1e+19; write a number greater than 0 and at most 1e+18"},
        {"pixelsPerUnit", "true", "is true or false; write a number"},
        {"unit", "6", "is a number; write a text: \"Meters\""},
        {"unit", "\"metters\"",
         "is \"metters\", which is no unit (did you mean \"Meters\"?); the units are Unitless, Inches,"},
    };
    for (const auto& wrong : cases) {
        const std::string place = "SITE.json:7: image 1, field \"" + std::string(wrong.field) + "\": ";
        const std::string failure = failureOfManifest(siteWith(wrong.field, wrong.value));
        EXPECT_EQ(failure.find(place + wrong.complaint), 0U) << failure;
        EXPECT_NE(failure.find(';'), std::string::npos) << "says nothing to do: " << failure;
    }
}

TEST(Manifest, NumbersBeyondDoubleAreAnError) {
    for (const char* number : {"1e999", "NaN"}) {
        EXPECT_EQ(failureOfManifest(siteWith("leftTop", "[0, " + std::string(number) + ", 0]"))
                      .find("SITE.json:7:16: image 1: this is not JSON: " + std::string(number) + " is no "),
                  0U);
    }
}

TEST(Manifest, UnknownAndRepeatedFieldsOfAnImageAreAnError) {
    EXPECT_EQ(
        failureOfManifest(siteWith("pixelPerUnit", "200")),
        "SITE.json:8: image 1 has the unknown field \"pixelPerUnit\" (did you mean \"pixelsPerUnit\"?); the "
        "fields are path, name, leftTop, leftBottom, rightBottom, right, up, pixelsPerUnit, worldFile, "
        "plane, elevation, unit");
    std::string text = siteWith("unit", "\"Feet\"");
    text.replace(text.find("\n}]}"), 1, ",\n\"path\": \"b.png\"\n");
    EXPECT_EQ(failureOfManifest(text),
              "SITE.json:8: image 1 has the field \"path\" twice; leave one of them out");
}

TEST(Manifest, EveryWrongImageIsReported) {
    const std::string failure =
        failureOfManifest("{\"images\": [\n1,\n" + std::string(goodImage) + ",\n{}\n]}");
    EXPECT_EQ(failure.find("SITE.json:2: image 1 is a number"), 0U) << failure;
    EXPECT_NE(failure.find("\nSITE.json:5: image 3 has no field \"path\""), std::string::npos) << failure;
    EXPECT_EQ(failure.find("image 2"), std::string::npos) << failure;
}

TEST(Manifest, VeryManyWrongImagesAreCounted) {
    std::string text = "{\"images\": [0";
    for (int i = 1; i < 25; ++i)
        text += ",0";
    const std::string failure = failureOfManifest(text + "]}");
    EXPECT_NE(failure.find("image 20 is a number"), std::string::npos);
    EXPECT_EQ(failure.find("image 21 is a number"), std::string::npos);
    EXPECT_NE(failure.find("\nand 5 more images are wrong"), std::string::npos) << failure;
}

TEST(Manifest, FileIsReadAndPicturesCountFromItsFolder) {
    const TestFolder folder;
    const fs::path site =
        writeFile(folder / "sub/SITE.json", siteText({imageText("süd.png"), imageText("../b.png")}));
    const Manifest manifest = readManifest(site);
    EXPECT_EQ(manifest.pictureFile(0), folder / "sub/süd.png");
    EXPECT_EQ(manifest.pictureFile(1), folder / "b.png");
}

TEST(Manifest, UnreadableFilesAreErrors) {
    const TestFolder folder;
    const auto failureOfFile = [](const fs::path& file) -> std::string {
        try {
            readManifest(file);
        } catch (const BadInput& failure) {
            return failure.what();
        }
        return "no failure";
    };
    EXPECT_EQ(failureOfFile(folder / "no.json"),
              quoted(folder / "no.json") + ": there is no such file; check the path of SITE.json");
    EXPECT_EQ(failureOfFile(folder.path()),
              quoted(folder.path()) + ": this is a folder; name the SITE.json file in it");
    EXPECT_EQ(failureOfFile(""), "\"\": there is no such file; check the path of SITE.json");
}

} // namespace rasterplan_tool
