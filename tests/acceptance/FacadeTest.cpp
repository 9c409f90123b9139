#include "ExportedDrawing.h"
#include "Triple.h"
#include "support/StructureWalk.h"
#include "support/TestFolder.h"
#include "support/WideText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <utility>

namespace {

using namespace rasterplan::test;

const TripleDouble origin(1.0, 2.0, 3.0);
const TripleDouble xAxis(1.0, 0.0, 0.0);
const TripleDouble yAxis(0.0, 1.0, 0.0);

// An output file in a folder of its own.
class Facade : public ::testing::Test {
protected:
    RasterPlanWriter newFacade(const char* name = "drawing.dxf") const {
        return RasterPlanWriter(wideTextOf(utf8FromPath(m_folder / name)).c_str());
    }

    bool isWritten(const char* name = "drawing.dxf") const { return exists(m_folder / name); }
    std::string bytes(const char* name = "drawing.dxf") const { return readBytes(m_folder / name); }

    const TestFolder m_folder;
};

std::vector<TripleDouble> corners(const ExportedDrawing& drawing) {
    std::vector<TripleDouble> all;
    for (const ExportedImage& image : drawing.images)
        all.insert(all.end(), {image.leftBottom, image.rightBottom, image.leftTop});
    for (const ExportedLine& line : drawing.lines)
        all.insert(all.end(), {line.start, line.end});
    return all;
}

} // namespace

TEST_F(Facade, SpareNamesAreExported) {
    EXPECT_EQ(fnRasterPlanWriter(), 42);
    EXPECT_EQ(nRasterPlanWriter, 0);
}

TEST_F(Facade, WithoutImagesProposesAndFlattensNothing) {
    RasterPlanWriter facade = newFacade();
    TripleDouble o(7, 7, 7);
    TripleDouble x(8, 8, 8);
    TripleDouble y(9, 9, 9);
    EXPECT_EQ(facade.calcMiddledImagePlaneReferenceCoordSystem3D(o, x, y), RasterPlanWriter::NoImage);
    EXPECT_EQ(o, TripleDouble(7, 7, 7));
    EXPECT_EQ(x, TripleDouble(8, 8, 8));
    EXPECT_EQ(y, TripleDouble(9, 9, 9));
    EXPECT_EQ(facade.create2DDxf(origin, xAxis, yAxis), RasterPlanWriter::NoImage);
    EXPECT_FALSE(isWritten());
}

TEST_F(Facade, WithoutImagesStopsAtTheFirstPlaceholderOfAnImage) {
    RasterPlanWriter facade = newFacade();
    EXPECT_EQ(facade.create3DDxf(), RasterPlanWriter::DxfFailure);
    EXPECT_TRUE(bytes().ends_with("\r\nSECTION\r\n2\r\nENTITIES\r\n"));
    EXPECT_NE(bytes().find("$HANDSEED\r\n5\r\n7E\r\n"), std::string::npos);
}

TEST_F(Facade, WritesTheSpecifiedOrderOfLines) {
    const ExportedDrawing drawing = exported3D({lyingAt(10, 20, 30, 4, 2)});
    ASSERT_EQ(drawing.lines.size(), 6u);
    const TripleDouble expected[6][2] = {{{10, 20, 30}, {14, 20, 30}},   {{10, 20, 30}, {10, 22, 30}},
                                         {{14, 20, 30}, {14, 22, 30}},   {{10, 22, 30}, {14, 22, 30}},
                                         {{9.8, 20, 30}, {9.9, 20, 30}}, {{10, 19.8, 30}, {10, 19.9, 30}}};
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_EQ(drawing.lines[i].start, expected[i][0]) << i;
        EXPECT_EQ(drawing.lines[i].end, expected[i][1]) << i;
    }
}

TEST_F(Facade, HandlesFollowLinesThenImages) {
    const ExportedDrawing drawing = exported3D({lyingAt(0, 0, 0), lyingAt(5, 0, 0)});
    EXPECT_EQ(drawing.first("LINE").handle(), "7E");
    EXPECT_EQ(drawing.first("IMAGE").handle(), "8A");
    EXPECT_EQ(drawing.first("IMAGEDEF").handle(), "8B");
    EXPECT_EQ(drawing.first("IMAGEDEF_REACTOR").handle(), "8C");
    EXPECT_EQ(drawing.variable("$HANDSEED").front(), "90");
}

TEST_F(Facade, RejectedImageChangesNothing) {
    RasterPlanWriter facade = newFacade();
    RasterPlanWriter other = newFacade("other.dxf");
    EXPECT_EQ(facade.add(lyingAt(0, 0, 0)), RasterPlanWriter::Success);
    EXPECT_EQ(other.add(lyingAt(0, 0, 0)), RasterPlanWriter::Success);
    EXPECT_EQ(facade.add(imageAt({9, 9, 9}, {0, 0, 0}, {5, 5, 5})), RasterPlanWriter::InvalidGeometry);
    EXPECT_EQ(facade.create3DDxf(), RasterPlanWriter::Success);
    EXPECT_EQ(other.create3DDxf(), RasterPlanWriter::Success);
    EXPECT_EQ(bytes(), bytes("other.dxf"));
}

TEST_F(Facade, MovedFromAnswersUnexpectedFailure) {
    RasterPlanWriter facade = newFacade();
    EXPECT_EQ(facade.add(lyingAt(0, 0, 0)), RasterPlanWriter::Success);
    RasterPlanWriter taken(std::move(facade));
    TripleDouble o;
    TripleDouble x;
    TripleDouble y;
    // NOLINTBEGIN(bugprone-use-after-move): what a host gets that does so.
    EXPECT_EQ(facade.add(lyingAt(0, 0, 0)), RasterPlanWriter::UnexpectedFailure);
    EXPECT_EQ(facade.calcMiddledImagePlaneReferenceCoordSystem3D(o, x, y),
              RasterPlanWriter::UnexpectedFailure);
    EXPECT_EQ(facade.create2DDxf(origin, xAxis, yAxis), RasterPlanWriter::UnexpectedFailure);
    EXPECT_EQ(facade.create3DDxf(), RasterPlanWriter::UnexpectedFailure);
    // NOLINTEND(bugprone-use-after-move)
    EXPECT_FALSE(isWritten());
    EXPECT_EQ(taken.create3DDxf(), RasterPlanWriter::Success);
}

TEST_F(Facade, MoveAssignmentFreesTheOwnDrawingAndTakesTheOther) {
    RasterPlanWriter facade = newFacade();
    RasterPlanWriter other = newFacade("other.dxf");
    EXPECT_EQ(facade.add(lyingAt(0, 0, 0)), RasterPlanWriter::Success);
    EXPECT_EQ(other.add(lyingAt(5, 0, 0)), RasterPlanWriter::Success);
    facade = std::move(other);
    EXPECT_EQ(facade.create3DDxf(), RasterPlanWriter::Success);
    EXPECT_FALSE(isWritten());
    EXPECT_EQ(readDrawing(bytes("other.dxf")).images.front().leftBottom, TripleDouble(5, 0, 0));
}

TEST_F(Facade, CopiesShareOneDrawingAndTheLastFreesIt) {
    auto first = std::make_unique<RasterPlanWriter>(newFacade());
    auto second = std::make_unique<RasterPlanWriter>(*first);
    RasterPlanWriter third = newFacade("third.dxf");
    third = *second;
    RasterPlanWriter& self = third;
    third = self;
    EXPECT_EQ(first->add(lyingAt(0, 0, 0)), RasterPlanWriter::Success);
    first.reset();
    EXPECT_EQ(second->add(lyingAt(5, 0, 0)), RasterPlanWriter::Success);
    second.reset();
    EXPECT_EQ(third.create3DDxf(), RasterPlanWriter::Success);
    EXPECT_FALSE(isWritten("third.dxf"));
    EXPECT_EQ(structureFindings(bytes(), framedImages(2)), std::vector<std::string>());
}

TEST_F(Facade, SecondWriteRepeatsTheRecordsOfTheFirst) {
    RasterPlanWriter facade = newFacade();
    EXPECT_EQ(facade.add(lyingAt(0, 0, 0)), RasterPlanWriter::Success);
    EXPECT_EQ(facade.add(lyingAt(5, 0, 0)), RasterPlanWriter::Success);
    EXPECT_EQ(facade.create3DDxf(), RasterPlanWriter::Success);
    const ExportedDrawing first = readDrawing(bytes());
    EXPECT_EQ(structureFindings(first.bytes, framedImages(2)), std::vector<std::string>());
    EXPECT_EQ(facade.create3DDxf(), RasterPlanWriter::Success);

    // Not a usable drawing: definitions and reactors of the second set were never filled. But its records
    // count.
    const std::string second = bytes();
    EXPECT_NE(structureFindings(second, framedImages(2)), std::vector<std::string>());
    EXPECT_NE(structureFindings(second, framedImages(4)), std::vector<std::string>());
    const auto groups = strictGroups(second);
    const auto count = [&](const char* type) {
        return std::count_if(groups.begin(), groups.end(),
                             [&](const DxfGroup& g) { return g.code == 0 && g.value == type; });
    };
    EXPECT_EQ(count("IMAGE"), 4);
    EXPECT_EQ(count("LINE"), 24);
    EXPECT_EQ(count("IMAGEDEF"), 4);
    EXPECT_EQ(count("IMAGEDEF_REACTOR"), 4);
    EXPECT_NE(second.find("$HANDSEED\r\n5\r\nA3\r\n"), std::string::npos); // 90 is skipped, 91 to A2 follow
}

TEST_F(Facade, ImageAddedAfterAWriteMakesLaterWritesFailAndLeavesTheFile) {
    RasterPlanWriter facade = newFacade();
    EXPECT_EQ(facade.add(lyingAt(0, 0, 0)), RasterPlanWriter::Success);
    EXPECT_EQ(facade.create3DDxf(), RasterPlanWriter::Success);
    const std::string before = bytes();
    EXPECT_EQ(facade.add(lyingAt(5, 0, 0)), RasterPlanWriter::Success);
    EXPECT_EQ(facade.create3DDxf(), RasterPlanWriter::DxfFailure);
    EXPECT_EQ(facade.create2DDxf(origin, xAxis, yAxis), RasterPlanWriter::DxfFailure);
    EXPECT_EQ(facade.create3DDxf(), RasterPlanWriter::DxfFailure);
    EXPECT_EQ(bytes(), before);
}

TEST_F(Facade, TwoFacadesWriteSpaceAndPlaneIndependently) {
    RasterPlanWriter inSpace = newFacade("3d.dxf");
    RasterPlanWriter inPlane = newFacade("2d.dxf");
    const std::vector<ImageParam> images = {imageAt({0, 5, 2}, {0, 5, 0}, {3, 5, 0}),
                                            imageAt({4, 5, 2}, {4, 5, 0}, {7, 5, 0})};
    for (const ImageParam& image : images) {
        EXPECT_EQ(inSpace.add(image), RasterPlanWriter::Success);
        EXPECT_EQ(inPlane.add(image), RasterPlanWriter::Success);
    }
    EXPECT_EQ(inPlane.create2DDxf({0, 5, 0}, {1, 0, 0}, {0, 0, 1}), RasterPlanWriter::Success);
    EXPECT_EQ(inSpace.create3DDxf(), RasterPlanWriter::Success);
    EXPECT_EQ(bytes("3d.dxf"), exported3D(images).bytes);
    EXPECT_EQ(bytes("2d.dxf"), exported2D(images, {0, 5, 0}, {1, 0, 0}, {0, 0, 1}).bytes);
}

TEST_F(Facade, FlatteningLeavesTheStoredDrawingAsItWas) {
    const std::vector<ImageParam> images = {imageAt({0, 5, 2}, {0, 5, 0}, {3, 5, 0}),
                                            imageAt({4, 6, 2}, {4, 6, 0}, {7, 6, 0})};
    const std::vector<TripleDouble> expected = corners(exported3D(images));
    RasterPlanWriter facade = newFacade();
    for (const ImageParam& image : images)
        EXPECT_EQ(facade.add(image), RasterPlanWriter::Success);
    TripleDouble o;
    TripleDouble x;
    TripleDouble y;
    EXPECT_EQ(facade.calcMiddledImagePlaneReferenceCoordSystem3D(o, x, y), RasterPlanWriter::Success);
    EXPECT_EQ(facade.create2DDxf({9, 9, 9}, {0.6, 0.8, 0}, {0, 0, 1}), RasterPlanWriter::Success);
    EXPECT_EQ(facade.create3DDxf(), RasterPlanWriter::Success);

    // The drawing in space is the second write: its records stand behind those of the flattened one, and name
    // pictures that were never filled.
    std::vector<DxfRecord> inSpace;
    std::size_t pictures = 0;
    std::size_t lines = 0;
    for (const DxfRecord& record : strictRecords(strictGroups(bytes())))
        if ((record.type == "IMAGE" && ++pictures > images.size()) ||
            (record.type == "LINE" && ++lines > 6 * images.size()))
            inSpace.push_back(record);
    EXPECT_EQ(corners(readShapes(inSpace)), expected);

    TripleDouble o2;
    TripleDouble x2;
    TripleDouble y2;
    EXPECT_EQ(facade.calcMiddledImagePlaneReferenceCoordSystem3D(o2, x2, y2), RasterPlanWriter::Success);
    EXPECT_EQ(o, o2);
    EXPECT_EQ(x, x2);
    EXPECT_EQ(y, y2);
}

TEST_F(Facade, LastImageDecidesTheUnit) {
    ImageParam first = lyingAt(0, 0, 0);
    ImageParam last = lyingAt(5, 0, 0);
    first.setDrawingUnit(Feet);
    last.setDrawingUnit(Millimeters);
    EXPECT_EQ(exported3D({first, last}).variable("$INSUNITS").front(), "4");
}

TEST_F(Facade, ViewOfALyingImageLooksDownOnItsCentre) {
    const ExportedDrawing drawing = exported3D({lyingAt(0, 0, 0, 4, 2)});
    const DxfRecord& view = drawing.first("VPORT");
    EXPECT_EQ(view.value(36), "1.00000000000000000");
    EXPECT_EQ(view.value(17), "2.00000000000000000");
    EXPECT_EQ(view.value(27), "1.00000000000000000");
    EXPECT_EQ(view.value(40), "2.00000000000000000");
    EXPECT_EQ(view.value(41), "2.00000000000000000");
    EXPECT_EQ(view.value(71), "0.0");
    EXPECT_EQ(view.handle(), "29");
}

TEST_F(Facade, ImagesBelowZeroKeepTheUpperExtentAtZero) {
    const ExportedDrawing drawing = exported3D({lyingAt(-9, -8, -7, 3, 2)});
    EXPECT_EQ(
        drawing.variable("$EXTMIN"),
        (std::vector<std::string>{"-9.00000000000000000", "-8.00000000000000000", "-7.00000000000000000"}));
    EXPECT_EQ(drawing.variable("$EXTMAX"), std::vector<std::string>(3, "0.00000000000000000"));
}
