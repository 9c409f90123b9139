#include <RasterPlanWriter/RasterPlanWriter.h>

int main() {
    ImageParam image(L"south.png");
    image.setImageCorners(TripleDouble(0, 0, 3), TripleDouble(0, 0, 0), TripleDouble(5, 0, 0));
    image.setNumberPixelPerUnit(200); // the picture has 1000 x 600 pixels

    RasterPlanWriter drawing(L"south.dxf");
    const RasterPlanWriter::ErrorEnum added = drawing.add(image);
    return added == RasterPlanWriter::Success ? drawing.create3DDxf() : added;
}
