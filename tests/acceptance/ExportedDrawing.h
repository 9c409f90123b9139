#pragma once

#include "support/StrictDxf.h"

#include <RasterPlanWriter/RasterPlanWriter.h>

#include <string>
#include <string_view>
#include <vector>

namespace rasterplan::test {

/// A picture as a reader of the drawing sees it.
struct ExportedImage {
    TripleDouble leftBottom;
    TripleDouble rightBottom;
    TripleDouble leftTop;
    std::string path;
};

/// A LINE as a reader sees it.
struct ExportedLine {
    TripleDouble start;
    TripleDouble end;
};

/// A written drawing, read back.
struct ExportedDrawing {
    std::string bytes;
    std::vector<DxfRecord> records;
    std::vector<ExportedImage> images;
    std::vector<ExportedLine> lines;

    /// The pairs of a header variable, value by value. Throws std::runtime_error if there is none.
    std::vector<std::string> variable(std::string_view name) const;

    /// The first record of a type. Throws std::runtime_error if there is none.
    const DxfRecord& first(std::string_view type) const;
};

/// The pictures, without their paths, and the lines among records.
ExportedDrawing readShapes(const std::vector<DxfRecord>& records);

/// Reads a drawing. Throws std::runtime_error where it is none.
ExportedDrawing readDrawing(std::string bytes);

/// An image by its corners; 100 pixels per unit, metres.
ImageParam imageAt(const TripleDouble& leftTop, const TripleDouble& leftBottom,
                   const TripleDouble& rightBottom, const wchar_t* path = L"picture.png");

/// An image of `width` by `height` lying in the xy plane with its left-bottom corner at (x, y, z).
ImageParam lyingAt(double x, double y, double z, double width = 3.0, double height = 2.0);

/// What create3DDxf writes for these images on a new facade. Throws std::runtime_error when it does not
/// succeed.
ExportedDrawing exported3D(const std::vector<ImageParam>& images);

/// What create2DDxf writes for them. Throws as exported3D.
ExportedDrawing exported2D(const std::vector<ImageParam>& images, const TripleDouble& origin,
                           const TripleDouble& xAxis, const TripleDouble& yAxis);

/// As that, in the plane that the library proposes.
ExportedDrawing exported2D(const std::vector<ImageParam>& images);

} // namespace rasterplan::test
