// What a host may get wrong in an image or in the place of its drawing: an answer in every case, never a
// crash.

#include "ExportedDrawing.h"
#include "support/Numbers.h"
#include "support/StructureWalk.h"
#include "support/TestFolder.h"
#include "support/WideText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <exception>
#include <limits>
#include <stdexcept>
#include <string>

namespace {

using namespace rasterplan::test;

constexpr double denormal = std::numeric_limits<double>::denorm_min();
constexpr double largest = std::numeric_limits<double>::max();

RasterPlanWriter::ErrorEnum added(const ImageParam& image) {
    RasterPlanWriter facade;
    return facade.add(image);
}

// Each of the nine coordinates of three good corners in turn.
template <typename Visitor>
void forEachCoordinateReplaced(double value, const Visitor& visit) {
    for (int i = 0; i < 9; ++i) {
        double c[9] = {0, 2, 0, 0, 0, 0, 3, 0, 0};
        c[i] = value;
        SCOPED_TRACE(testing::Message() << "coordinate " << i << " is " << value);
        visit(TripleDouble(c[0], c[1], c[2]), TripleDouble(c[3], c[4], c[5]), TripleDouble(c[6], c[7], c[8]));
    }
}

RasterPlanWriter::ErrorEnum writtenTo(const std::filesystem::path& path) {
    RasterPlanWriter facade(wideTextOf(utf8FromPath(path)).c_str());
    EXPECT_EQ(facade.add(lyingAt(0, 0, 0)), RasterPlanWriter::Success);
    return facade.create3DDxf();
}

} // namespace

TEST(BadCorners, NanAndInfinityAreRejected) {
    for (const double value : {notANumber, -notANumber, infinity, -infinity}) {
        forEachCoordinateReplaced(value, [](const auto& leftTop, const auto& leftBottom,
                                            const auto& rightBottom) {
            EXPECT_EQ(added(imageAt(leftTop, leftBottom, rightBottom)), RasterPlanWriter::InvalidGeometry);
        });
    }
}

TEST(BadCorners, HugeOnesAreRejectedWhereLengthsOverflow) {
    for (const double value : {1e160, -1e200, largest, -largest}) {
        forEachCoordinateReplaced(value, [](const auto& leftTop, const auto& leftBottom,
                                            const auto& rightBottom) {
            EXPECT_EQ(added(imageAt(leftTop, leftBottom, rightBottom)), RasterPlanWriter::InvalidGeometry);
        });
    }
}

TEST(BadCorners, EdgesOfLengthZeroThrow) {
    EXPECT_THROW(imageAt({0, 0, 0}, {0, 0, 0}, {3, 0, 0}), std::exception);
    EXPECT_THROW(imageAt({0, 2, 0}, {0, 0, 0}, {0, 0, 0}), std::exception);
    EXPECT_THROW(imageAt({0, 0, 0}, {0, 0, 0}, {0, 0, 0}), std::exception);
    // The edges vanish in the rounding of so large a corner.
    EXPECT_THROW(lyingAt(1e90, 1e90, 0), std::exception);
}

TEST(BadCorners, EdgesOfDenormalLengthAreRejected) {
    EXPECT_EQ(added(imageAt({0, denormal, 0}, {0, 0, 0}, {3, 0, 0})), RasterPlanWriter::InvalidGeometry);
    EXPECT_EQ(added(imageAt({0, 2, 0}, {0, 0, 0}, {denormal, 0, 0})), RasterPlanWriter::InvalidGeometry);
    EXPECT_EQ(added(lyingAt(0, 0, 0, 1e-10, 1.0)), RasterPlanWriter::InvalidGeometry);
    EXPECT_EQ(added(lyingAt(0, 0, 0, 1.0, 1.01e-10)), RasterPlanWriter::Success);
}

TEST(BadCorners, DenormalCornersAreWrittenAsZero) {
    const ExportedDrawing drawing =
        exported3D({imageAt({denormal, 2, -denormal}, {denormal, 0, -denormal}, {3, 0, 0})});
    EXPECT_EQ(structureFindings(drawing.bytes, framedImages(1)), std::vector<std::string>());
    EXPECT_EQ(drawing.first("IMAGE").value(10), "0.00000000000000000");
    EXPECT_EQ(drawing.first("IMAGE").value(30), "-0.00000000000000000");
}

TEST(BadCorners, OnlyNearlyRightAnglesAreAccepted) {
    EXPECT_EQ(added(imageAt({0.00199, 2, 0}, {0, 0, 0}, {3, 0, 0})), RasterPlanWriter::Success);
    EXPECT_EQ(added(imageAt({0.00201, 2, 0}, {0, 0, 0}, {3, 0, 0})), RasterPlanWriter::InvalidGeometry);
    EXPECT_EQ(added(imageAt({-0.00201, 2, 0}, {0, 0, 0}, {3, 0, 0})), RasterPlanWriter::InvalidGeometry);
    EXPECT_EQ(added(imageAt({3, 0, 0}, {0, 0, 0}, {3, 0, 0})), RasterPlanWriter::InvalidGeometry);
}

TEST(BadCorners, WithoutAnyTheImageIsRejected) {
    EXPECT_EQ(added(ImageParam()), RasterPlanWriter::InvalidGeometry);
    EXPECT_EQ(added(ImageParam(L"picture.png")), RasterPlanWriter::InvalidGeometry);
}

TEST(BadCorners, NumbersTooLongForTheirTextAreCutToIt) {
    const ExportedDrawing drawing = exported3D({lyingAt(-1e120, 0, 0, 1e120, 1e120)});
    EXPECT_EQ(structureFindings(drawing.bytes, framedImages(1)), std::vector<std::string>());
    EXPECT_EQ(drawing.first("IMAGE").value(10).size(), 99u);
    EXPECT_EQ(drawing.first("IMAGE").value(13).size(), 99u);
}

TEST(BadUnits, OutOfRangeChangesNothing) {
    ImageParam image = lyingAt(0, 0, 0);
    image.setDrawingUnit(USSurveyFeet);
    for (const int unit : {22, 23, -1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
        image.setDrawingUnit(static_cast<DrawingUnit>(unit));
    EXPECT_EQ(image.getDrawingUnit(), USSurveyFeet);
    EXPECT_EQ(exported3D({image}).variable("$INSUNITS").front(), "21");
}

TEST(BadPixels, AreWrittenAsTheHostGaveThem) {
    struct Case {
        double pixelsPerUnit;
        const char* width;
        const char* pixelSize;
    };
    for (const Case& c :
         {Case{0.0, "0.00000000000000000", "10.00000000000000000"},
          Case{-100.0, "-300.00000000000000000", "10.00000000000000000"},
          Case{infinity, "inf", "0.00000000000000000"}, Case{notANumber, "nan", "10.00000000000000000"}}) {
        SCOPED_TRACE(c.pixelsPerUnit);
        ImageParam image = lyingAt(0, 0, 0);
        image.setNumberPixelPerUnit(c.pixelsPerUnit);
        RasterPlanWriter facade;
        const TestFolder folder;
        const auto file = folder / "drawing.dxf";
        facade = RasterPlanWriter(wideTextOf(utf8FromPath(file)).c_str());
        EXPECT_EQ(facade.add(image), RasterPlanWriter::Success);
        EXPECT_EQ(facade.create3DDxf(), RasterPlanWriter::Success);
        for (const DxfRecord& record : strictRecords(strictGroups(readBytes(file)))) {
            if (record.type == "IMAGE") {
                EXPECT_EQ(record.value(13), c.width);
            } else if (record.type == "IMAGEDEF") {
                EXPECT_EQ(record.value(10), c.width);
                EXPECT_EQ(record.value(11), c.pixelSize);
                EXPECT_EQ(record.value(21), c.pixelSize);
            }
        }
    }
}

TEST(BadPixels, ShowAsInfAndNanInTheDrawing) {
    for (const double pixelsPerUnit : {0.0, notANumber, infinity}) {
        ImageParam image = imageAt({1, 4, 0}, {1, 2, 0}, {4, 2, 0});
        image.setNumberPixelPerUnit(pixelsPerUnit);
        const ExportedDrawing drawing = exported3D({image});
        const DxfRecord& record = drawing.first("IMAGE");
        const bool divides = pixelsPerUnit == 0.0;
        const bool isNan = std::isnan(pixelsPerUnit);
        EXPECT_EQ(record.value(11), divides ? "inf" : isNan ? "nan" : "0.00000000000000000") << pixelsPerUnit;
        EXPECT_EQ(record.value(21), divides || isNan ? "nan" : "0.00000000000000000") << pixelsPerUnit;
        EXPECT_EQ(record.value(13), divides ? "0.00000000000000000" : isNan ? "nan" : "inf") << pixelsPerUnit;
    }
}

TEST(BadImagePaths, OneOfAnyLengthIsWrittenWhole) {
    constexpr std::size_t length = (std::size_t{1} << 24) + 1;
    const ExportedDrawing drawing =
        exported3D({imageAt({0, 2, 0}, {0, 0, 0}, {3, 0, 0}, std::wstring(length, L'p').c_str())});
    EXPECT_TRUE(drawing.first("IMAGEDEF").value(1) == std::string(length, 'p'));
}

TEST(BadImagePaths, NullAndEmptyAreWrittenAsEmptyTexts) {
    for (const wchar_t* path : {static_cast<const wchar_t*>(nullptr), L""}) {
        const ExportedDrawing drawing = exported3D({imageAt({0, 2, 0}, {0, 0, 0}, {3, 0, 0}, path)});
        EXPECT_EQ(structureFindings(drawing.bytes, framedImages(1)), std::vector<std::string>());
        EXPECT_EQ(drawing.first("IMAGEDEF").value(1), "");
    }
}

TEST(BadImagePaths, NewlineStaysInTheDrawing) {
    const TestFolder folder;
    RasterPlanWriter facade(wideTextOf(utf8FromPath(folder / "drawing.dxf")).c_str());
    EXPECT_EQ(facade.add(imageAt({0, 2, 0}, {0, 0, 0}, {3, 0, 0}, L"first\nsecond.png")),
              RasterPlanWriter::Success);
    EXPECT_EQ(facade.create3DDxf(), RasterPlanWriter::Success);
    const std::string bytes = readBytes(folder / "drawing.dxf");
    EXPECT_NE(bytes.find("\r\n1\r\nfirst\r\nsecond.png\r\n10\r\n"), std::string::npos);
    EXPECT_TRUE(bytes.ends_with("\r\nEOF\r\n"));
}

TEST(BadImagePaths, LoneSurrogateIsEncodedAsItStands) {
    const wchar_t path[] = {L'a', static_cast<wchar_t>(0xD800), L'b', L'\0'};
    const ExportedDrawing drawing = exported3D({imageAt({0, 2, 0}, {0, 0, 0}, {3, 0, 0}, path)});
    EXPECT_EQ(drawing.first("IMAGEDEF").value(1), "a\xED\xA0\x80"
                                                  "b");
}

TEST(BadImagePaths, CodePointBeyondUnicodeThrowsAndTheDrawingEndsBeforeIt) {
    if (sizeof(wchar_t) == 2)
        GTEST_SKIP() << "wide characters of 16 bits hold no such code point";
    const wchar_t path[] = {L'a', static_cast<wchar_t>(0x110000L), L'\0'};
    const TestFolder folder;
    RasterPlanWriter facade(wideTextOf(utf8FromPath(folder / "drawing.dxf")).c_str());
    EXPECT_EQ(facade.add(imageAt({0, 2, 0}, {0, 0, 0}, {3, 0, 0}, path)), RasterPlanWriter::Success);
    EXPECT_THROW(facade.create3DDxf(), std::range_error);
    // The image dictionary names the file and is the first record to do so.
    EXPECT_TRUE(readBytes(folder / "drawing.dxf").ends_with("ACDBPLACEHOLDER\r\n5\r\n38\r\n330\r\n37\r\n"));
}

TEST(BadOutput, NullAndEmptyPathsCannotBeOpened) {
    for (const wchar_t* path : {static_cast<const wchar_t*>(nullptr), L""}) {
        RasterPlanWriter facade(path);
        EXPECT_EQ(facade.add(lyingAt(0, 0, 0)), RasterPlanWriter::Success);
        EXPECT_EQ(facade.create3DDxf(), RasterPlanWriter::CannotOpenOutput);
        EXPECT_EQ(facade.create2DDxf({0, 0, 0}, {1, 0, 0}, {0, 1, 0}), RasterPlanWriter::CannotOpenOutput);
    }
}

TEST(BadOutput, FolderIsMissingOrInTheWay) {
    const TestFolder folder;
    EXPECT_EQ(writtenTo(folder / "missing/drawing.dxf"), RasterPlanWriter::CannotOpenOutput);
    EXPECT_EQ(writtenTo(folder.path()), RasterPlanWriter::CannotOpenOutput);
    EXPECT_FALSE(exists(folder / "missing"));
    EXPECT_EQ(writtenTo(folder / std::string(300, 'n')), RasterPlanWriter::CannotOpenOutput);
    EXPECT_EQ(writtenTo(folder / "drawing.dxf"), RasterPlanWriter::Success);
}

TEST(BadOutput, CodePointBeyondUnicodeCannotBeOpened) {
    if (sizeof(wchar_t) == 2)
        GTEST_SKIP() << "wide characters of 16 bits hold no such code point";
    const wchar_t path[] = {static_cast<wchar_t>(0x110000L), L'\0'};
    RasterPlanWriter facade(path);
    EXPECT_EQ(facade.add(lyingAt(0, 0, 0)), RasterPlanWriter::Success);
    EXPECT_EQ(facade.create3DDxf(), RasterPlanWriter::CannotOpenOutput);
}

#ifndef _WIN32

TEST(BadOutput, PlaceInWhichNobodyCreatesFiles) {
    EXPECT_EQ(writtenTo("/proc/drawing.dxf"), RasterPlanWriter::CannotOpenOutput);
}

TEST(BadOutput, FullDiskIsNotNoticed) {
    EXPECT_EQ(writtenTo("/dev/full"), RasterPlanWriter::Success);
}

#endif
