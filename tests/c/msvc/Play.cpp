// A host of the classes as a compiler with the conventions of Visual Studio builds it: plays a golden scene,
// and has the library throw inside. It ends with the number of the line that is not as it should be, or with
// 0.

#include <RasterPlanWriter/RasterPlanWriter.h>
#include <RasterPlanWriter/ResultText.h>

namespace {

struct Picture {
    const wchar_t* path;
    TripleDouble leftTop, leftBottom, rightBottom;
};

bool isSame(const TripleDouble& a, const TripleDouble& b) {
    return a.x == b.x && a.y == b.y && a.z == b.z;
}

int seeFailures() {
    ImageParam image(L"south.png");
    image.setImageCorners({0, 0, 3}, {0, 0, 0}, {5, 0, 0});
    image.setImageCorners({1, 1, 1}, {1, 1, 1}, {2, 1, 1}); // the library throws and catches
    if (image.getImgWidth() != 5 || !isSame(image.getRightTopCorner(), {5, 0, 3}))
        return __LINE__;
    RasterPlanWriter drawing(L"failed.dxf");
    if (drawing.create2DDxf({0, 0, 0}, {1, 0, 0}, {0, 0, 1}) != RasterPlanWriter::NoImage)
        return __LINE__;
    if (drawing.add(image) != RasterPlanWriter::Success)
        return __LINE__;
    if (drawing.create2DDxf({0, 0, 0}, {0, 0, 0}, {0, 0, 1}) != RasterPlanWriter::DxfFailure)
        return __LINE__;
    const RasterPlanWriter taken(static_cast<RasterPlanWriter&&>(drawing));
    if (drawing.add(image) != RasterPlanWriter::UnexpectedFailure)
        return __LINE__;
    return resultText(RasterPlanWriter::Success)[0] == 'd' && fnRasterPlanWriter() == 42 ? 0 : __LINE__;
}

int writeFlattened() {
    const Picture pictures[] = {{L"middle.png",
                                 {4.330127018922194, 2.5, 7},
                                 {4.330127018922194, 2.5, 2},
                                 {12.99038105676658, 7.5, 2}},
                                {L"left.png", {0.01, 0, 8}, {0.01, 0, 3}, {4.340127018922194, 2.5, 3}},
                                {L"top.png", {0.02, 0.01, 12}, {0.02, 0.01, 8}, {8.68025403784439, 5.01, 8}}};
    RasterPlanWriter drawing(L"flat-proposed.dxf");
    for (const Picture& picture : pictures) {
        ImageParam image(picture.path);
        image.setImageCorners(picture.leftTop, picture.leftBottom, picture.rightBottom);
        image.setNumberPixelPerUnit(40);
        const ImageParam copy = image;
        image.setImagePath(L"another.png");
        if (drawing.add(copy) != RasterPlanWriter::Success)
            return __LINE__;
    }
    TripleDouble origin, xAxis, yAxis;
    if (drawing.calcMiddledImagePlaneReferenceCoordSystem3D(origin, xAxis, yAxis) !=
        RasterPlanWriter::Success)
        return __LINE__;
    RasterPlanWriter shared = drawing;
    return shared.create2DDxf(origin, xAxis, yAxis) == RasterPlanWriter::Success ? 0 : __LINE__;
}

} // namespace

int main() {
    const int line = seeFailures();
    return line ? line : writeFlattened();
}
