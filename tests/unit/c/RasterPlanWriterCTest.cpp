#include <RasterPlanWriterC/RasterPlanWriterC.h>

#include <RasterPlanWriter/RasterPlanWriter.h>
#include <RasterPlanWriter/ResultText.h>

#include "support/TestFolder.h"
#include "support/WideText.h"

#include <gtest/gtest.h>

#include <limits>
#include <set>
#include <string>

using namespace rasterplan::test;

namespace {

constexpr double leftTop[] = {0, 0, 3};
constexpr double leftBottom[] = {0, 0, 0};
constexpr double rightBottom[] = {5, 0, 0};
constexpr double infinite[] = {std::numeric_limits<double>::infinity(), 0, 0};

// Frees the drawing of a test.
struct Owner {
    RpwDrawing* drawing = nullptr;

    explicit Owner(const std::filesystem::path& path) {
        EXPECT_EQ(rpwCreateUtf8(utf8FromPath(path).c_str(), &drawing), RpwSuccess);
    }
    Owner(const Owner&) = delete;
    Owner& operator=(const Owner&) = delete;
    ~Owner() { rpwDestroy(drawing); }

    RpwResult add() const {
        return rpwAddUtf8(drawing, "south.png", leftTop, leftBottom, rightBottom, 200, Feet);
    }
};

} // namespace

TEST(CFunctions, WritesWhatTheFacadeWrites) {
    const TestFolder test;
    const Owner own(test / "c.dxf");
    ASSERT_EQ(own.add(), RpwSuccess);
    ASSERT_EQ(rpwWrite3d(own.drawing), RpwSuccess);

    ImageParam image(L"south.png");
    image.setImageCorners({0, 0, 3}, {0, 0, 0}, {5, 0, 0});
    image.setNumberPixelPerUnit(200);
    image.setDrawingUnit(Feet);
    RasterPlanWriter writer(wideTextOf(utf8FromPath(test / "cpp.dxf")).c_str());
    ASSERT_EQ(writer.add(image), RasterPlanWriter::Success);
    ASSERT_EQ(writer.create3DDxf(), RasterPlanWriter::Success);
    EXPECT_EQ(readBytes(test / "c.dxf"), readBytes(test / "cpp.dxf"));
}

TEST(CFunctions, TakesPathsInUtf16) {
    const TestFolder test;
    const Owner eight(test / "8.dxf");
    ASSERT_EQ(rpwAddUtf8(eight.drawing, "\xC3\xBC.png", leftTop, leftBottom, rightBottom, 1, Feet),
              RpwSuccess);
    ASSERT_EQ(rpwWrite3d(eight.drawing), RpwSuccess);

    const std::u16string path = (test / "16.dxf").u16string();
    const std::vector<std::uint16_t> units(path.c_str(), path.c_str() + path.size() + 1);
    const std::uint16_t picture[] = {0xFC, '.', 'p', 'n', 'g', 0};
    RpwDrawing* sixteen = nullptr;
    ASSERT_EQ(rpwCreateUtf16(units.data(), &sixteen), RpwSuccess);
    EXPECT_EQ(rpwAddUtf16(sixteen, picture, leftTop, leftBottom, rightBottom, 1, Feet), RpwSuccess);
    EXPECT_EQ(rpwWrite3d(sixteen), RpwSuccess);
    rpwDestroy(sixteen);
    EXPECT_EQ(readBytes(test / "16.dxf"), readBytes(test / "8.dxf"));
}

TEST(CFunctions, NamesNullPointersInvalidArguments) {
    const TestFolder test;
    const Owner own(test / "plan.dxf");
    double numbers[3] = {};
    RpwPlace place = {};
    auto* other = own.drawing;
    EXPECT_EQ(rpwCreateUtf8("plan.dxf", nullptr), RpwInvalidArgument);
    EXPECT_EQ(rpwCreateUtf8(nullptr, &other), RpwInvalidArgument);
    EXPECT_EQ(other, nullptr);
    EXPECT_EQ(rpwCreateUtf16(nullptr, &other), RpwInvalidArgument);
    EXPECT_EQ(rpwAddUtf8(nullptr, "", leftTop, leftBottom, rightBottom, 1, 0), RpwInvalidArgument);
    EXPECT_EQ(rpwAddUtf8(own.drawing, "", nullptr, leftBottom, rightBottom, 1, 0), RpwInvalidArgument);
    EXPECT_EQ(rpwAddUtf8(own.drawing, "", leftTop, nullptr, rightBottom, 1, 0), RpwInvalidArgument);
    EXPECT_EQ(rpwAddUtf8(own.drawing, "", leftTop, leftBottom, nullptr, 1, 0), RpwInvalidArgument);
    EXPECT_EQ(rpwAddUtf16(nullptr, nullptr, leftTop, leftBottom, rightBottom, 1, 0), RpwInvalidArgument);
    EXPECT_EQ(rpwProposePlane(nullptr, numbers, numbers, numbers), RpwInvalidArgument);
    EXPECT_EQ(rpwProposePlane(own.drawing, nullptr, numbers, numbers), RpwInvalidArgument);
    EXPECT_EQ(rpwProposePlane(own.drawing, numbers, nullptr, numbers), RpwInvalidArgument);
    EXPECT_EQ(rpwProposePlane(own.drawing, numbers, numbers, nullptr), RpwInvalidArgument);
    EXPECT_EQ(rpwWrite3d(nullptr), RpwInvalidArgument);
    EXPECT_EQ(rpwWrite2d(nullptr, numbers, numbers, numbers), RpwInvalidArgument);
    EXPECT_EQ(rpwWrite2d(own.drawing, nullptr, numbers, numbers), RpwInvalidArgument);
    EXPECT_EQ(rpwWrite2d(own.drawing, numbers, nullptr, numbers), RpwInvalidArgument);
    EXPECT_EQ(rpwWrite2d(own.drawing, numbers, numbers, nullptr), RpwInvalidArgument);
    EXPECT_EQ(rpwMeasure(nullptr, leftBottom, rightBottom, &place), RpwInvalidArgument);
    EXPECT_EQ(rpwMeasure(leftTop, leftBottom, rightBottom, nullptr), RpwInvalidArgument);
    rpwShare(nullptr);
    rpwDestroy(nullptr);
}

TEST(CFunctions, RefusesPathsThatAreNoUtf8AndUnknownUnits) {
    const TestFolder test;
    const Owner own(test / "plan.dxf");
    RpwDrawing* other = own.drawing;
    EXPECT_EQ(rpwCreateUtf8("\xFF", &other), RpwInvalidArgument);
    EXPECT_EQ(other, nullptr);
    EXPECT_EQ(rpwAddUtf8(own.drawing, "\xC3.png", leftTop, leftBottom, rightBottom, 1, Meters),
              RpwInvalidArgument);
    for (const std::int32_t unit : {-1, 22})
        EXPECT_EQ(rpwAddUtf8(own.drawing, "", leftTop, leftBottom, rightBottom, 1, unit), RpwInvalidArgument);
    EXPECT_EQ(rpwWrite2d(own.drawing, leftTop, leftTop, leftTop), RpwNoImage) << "nothing was added";
    for (const std::int32_t unit : {0, 21})
        EXPECT_EQ(rpwAddUtf8(own.drawing, "", leftTop, leftBottom, rightBottom, 1, unit), RpwSuccess);
}

TEST(CFunctions, AnswersWhereTheFacadeThrows) {
    const TestFolder test;
    const Owner own(test / "plan.dxf");
    RpwPlace place = {};
    place.width = 7;
    EXPECT_EQ(rpwMeasure(leftBottom, leftBottom, rightBottom, &place), RpwInvalidGeometry);
    EXPECT_EQ(place.width, 7);
    EXPECT_EQ(rpwAddUtf8(own.drawing, "", leftBottom, leftBottom, rightBottom, 1, 0), RpwInvalidGeometry);
    ASSERT_EQ(own.add(), RpwSuccess);
    EXPECT_EQ(rpwWrite2d(own.drawing, leftBottom, leftBottom, leftTop), RpwInvalidPlane);
    EXPECT_EQ(rpwWrite2d(own.drawing, leftBottom, rightBottom, infinite), RpwInvalidPlane);
    EXPECT_FALSE(exists(test / "plan.dxf"));
}

TEST(CFunctions, ProposesThePlaneOrLeavesTheNumbers) {
    const TestFolder test;
    const Owner own(test / "plan.dxf");
    double origin[] = {7, 7, 7}, xAxis[] = {7, 7, 7}, yAxis[] = {7, 7, 7};
    EXPECT_EQ(rpwProposePlane(own.drawing, origin, xAxis, yAxis), RpwNoImage);
    EXPECT_EQ(origin[0] + xAxis[1] + yAxis[2], 21);
    ASSERT_EQ(own.add(), RpwSuccess);
    EXPECT_EQ(rpwProposePlane(own.drawing, origin, xAxis, yAxis), RpwSuccess);
    EXPECT_EQ(origin[0], 0);
    EXPECT_EQ(xAxis[0], 1);
    EXPECT_EQ(yAxis[2], 1);
}

TEST(CFunctions, MeasuresAsTheClassDoes) {
    RpwPlace place = {};
    ASSERT_EQ(rpwMeasure(leftTop, leftBottom, rightBottom, &place), RpwSuccess);
    EXPECT_EQ(place.width, 5);
    EXPECT_EQ(place.height, 3);
    EXPECT_EQ(place.u[0], 1);
    EXPECT_EQ(place.v[2], 1);
    EXPECT_EQ(place.viewDirection[1], -1);
    EXPECT_EQ(place.rightTop[0] + place.rightTop[2], 8);
    EXPECT_EQ(rpwMillimeters(Inches), 25.4);
    EXPECT_EQ(rpwMillimeters(99), 1000.0);
}

TEST(CFunctions, LastOwnerFreesTheDrawing) {
    const TestFolder test;
    const Owner own(test / "plan.dxf");
    rpwShare(own.drawing);
    rpwDestroy(own.drawing);
    EXPECT_EQ(own.add(), RpwSuccess); // what the sanitizers watch
}

TEST(CFunctions, HasWordsOfItsOwnForEveryResult) {
    std::set<std::string> texts;
    for (RpwResult result = RpwSuccess; result <= RpwInvalidPlane; ++result)
        texts.insert(rpwResultText(result));
    EXPECT_EQ(texts.size(), 9U);
    EXPECT_STREQ(rpwResultText(RpwNoImage), resultText(RasterPlanWriter::NoImage));
    for (const RpwResult result : {-1, RpwInvalidPlane + 1})
        EXPECT_STREQ(rpwResultText(result), "unknown result");
}

TEST(ResultText, HasWordsOfItsOwnForEveryResult) {
    std::set<std::string> texts;
    for (int result = -1; result <= 7; ++result)
        texts.insert(resultText(static_cast<RasterPlanWriter::ErrorEnum>(result)));
    EXPECT_EQ(texts.size(), 8U); // both numbers that are no results have the same
}

TEST(Version, IsTheProjects) {
    EXPECT_STREQ(RASTERPLANWRITER_VERSION, RASTERPLAN_PROJECT_VERSION);
    EXPECT_EQ(std::to_string(RASTERPLANWRITER_VERSION_MAJOR) + '.' +
                  std::to_string(RASTERPLANWRITER_VERSION_MINOR) + '.' +
                  std::to_string(RASTERPLANWRITER_VERSION_PATCH),
              RASTERPLANWRITER_VERSION);
    EXPECT_STREQ(rpwVersion(), RASTERPLANWRITER_VERSION);
}
