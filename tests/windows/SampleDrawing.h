#pragma once

#include <RasterPlanWriter/RasterPlanWriter.h>

namespace rasterplan::test {

/// Writes a drawing of one image with fractions in its coordinates.
inline RasterPlanWriter::ErrorEnum writeSample(const wchar_t* output) {
    ImageParam image(L"S\u00FCd.png");
    image.setImageCorners({0.25, 0.5, 3.125}, {0.25, 0.5, 0.125}, {5.75, 0.5, 0.125});
    image.setNumberPixelPerUnit(200.5);
    RasterPlanWriter drawing(output);
    const RasterPlanWriter::ErrorEnum added = drawing.add(image);
    return added == RasterPlanWriter::Success ? drawing.create3DDxf() : added;
}

} // namespace rasterplan::test
