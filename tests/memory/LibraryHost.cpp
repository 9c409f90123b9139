// A host that does one export: library_host 3d|2d OUT.dxf. Its exit status is the library's result, or 10
// where std::bad_alloc came through. It needs no memory of its own.

#include <RasterPlanWriter/RasterPlanWriter.h>

#include <cstdlib>
#include <cstring>
#include <new>

namespace {

constexpr int outOfMemory = 10;

RasterPlanWriter::ErrorEnum addWall(RasterPlanWriter& drawing, const wchar_t* picture, double y) {
    ImageParam image(picture);
    image.setImageCorners({0, y, 3}, {0, y, 0}, {5, y, 0});
    image.setNumberPixelPerUnit(200);
    return drawing.add(image);
}

RasterPlanWriter::ErrorEnum write(RasterPlanWriter& drawing, bool flat) {
    if (!flat)
        return drawing.create3DDxf();
    TripleDouble origin, xAxis, yAxis;
    const auto proposed = drawing.calcMiddledImagePlaneReferenceCoordSystem3D(origin, xAxis, yAxis);
    return proposed == RasterPlanWriter::Success ? drawing.create2DDxf(origin, xAxis, yAxis) : proposed;
}

} // namespace

int main(int count, char** arguments) {
    wchar_t path[512] = {};
    if (count != 3 || std::mbstowcs(path, arguments[2], 511) == static_cast<std::size_t>(-1))
        return 99;
    try {
        RasterPlanWriter drawing(path);
        auto result = addWall(drawing, L"a path that no small buffer holds/south.png", 0);
        if (result == RasterPlanWriter::Success)
            result = addWall(drawing, L"a path that no small buffer holds/north.png", 1);
        return result == RasterPlanWriter::Success ? write(drawing, std::strcmp(arguments[1], "2d") == 0)
                                                   : result;
    } catch (const std::bad_alloc&) {
        return outOfMemory;
    }
}
