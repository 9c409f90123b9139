#pragma once

#include <RasterPlanWriter/DrawingUnit.h>
#include <RasterPlanWriter/Export.h>
#include <RasterPlanWriter/TripleDouble.h>

/// One ortho image: its file, its place in space, its resolution and its unit.
///
/// Every length and coordinate is in the image's drawing unit. The picture's edges are U (along the bottom,
/// to the right) and V (along the left, upwards); both start in the left-bottom corner.
///
/// The library never opens the picture. `pixels per unit x width` and `pixels per unit x height` must be the
/// true pixel counts of the file: CAD programs that measure the file itself show it too small or too large in
/// its frame otherwise.
class RASTERPLANWRITER_API ImageParam {
public:
    /// No path, unit Meters, 100 pixels per unit; width, height, corner and vectors are zero. Never throws.
    ImageParam() noexcept;

    /// As ImageParam(), with a copy of `path`; a null pointer gives no path. Throws std::bad_alloc.
    explicit ImageParam(const wchar_t* path);

    /// An independent copy, path included. Never throws.
    ImageParam(const ImageParam& other) noexcept;

    /// Takes over everything; `other` keeps all but its path. Never throws.
    ImageParam(ImageParam&& other) noexcept;

    /// As the copy constructor. Never throws.
    ImageParam& operator=(const ImageParam& other) noexcept;

    /// As the move constructor. Never throws.
    ImageParam& operator=(ImageParam&& other) noexcept;

    ~ImageParam();

    /// Stores a copy of `path`, the picture's file. It is written into the drawing exactly as given: nothing
    /// is made absolute, no separator is changed, and the file need not exist. A null pointer changes
    /// nothing. Throws std::bad_alloc; the path is then as it was.
    void setImagePath(const wchar_t* path);

    /// Sets place, size and directions from three corners of the picture.
    ///
    /// The corners are not tested for a right angle here; RasterPlanWriter::add does that.
    /// Throws an exception derived from std::exception when an edge has the length zero; place and size are
    /// then as they were.
    void setImageCorners(const TripleDouble& leftTop, const TripleDouble& leftBottom,
                         const TripleDouble& rightBottom);

    /// Sets the resolution: pixels per drawing unit, the same along both edges. Any value is stored as it is;
    /// a useful one is greater than 0. Never throws.
    void setNumberPixelPerUnit(double pixelsPerUnit) noexcept;

    /// Sets the unit. A value outside 0 to 21 changes nothing. Never throws.
    void setDrawingUnit(const DrawingUnit& unit) noexcept;

    /// The picture's path, or a null pointer when none was set; an empty path is not null. The text belongs
    /// to this object and lives until its path is set anew or it is destroyed. Never throws.
    const wchar_t* getImagePath() const noexcept;

    /// The unit of all lengths and coordinates. Never throws.
    DrawingUnit getDrawingUnit() const noexcept;

    /// Length of the bottom edge in drawing units; 0 before setImageCorners. Never throws.
    double getImgWidth() const noexcept;

    /// Length of the left edge in drawing units; 0 before setImageCorners. Never throws.
    double getImgHeight() const noexcept;

    /// Pixels per drawing unit. Never throws.
    double getNumPixelPerUnit() const noexcept;

    /// Pixels along the bottom edge: pixels per unit times width, not rounded. Never throws.
    double getNumPixelWidth() const noexcept;

    /// Pixels along the left edge: pixels per unit times height, not rounded. Never throws.
    double getNumPixelHeight() const noexcept;

    /// Unit vector along the bottom edge, to the right. Never throws.
    TripleDouble getImgUVector() const noexcept;

    /// Unit vector along the left edge, upwards. Never throws.
    TripleDouble getImgVVector() const noexcept;

    /// The corner from which U and V start. Never throws.
    TripleDouble getLeftBottomCorner() const noexcept;

    /// U x V: the direction from the picture to who looks at it face-on. Never throws.
    TripleDouble getViewDir() const noexcept;

    /// The corner opposite the left-bottom one. Never throws.
    TripleDouble getRightTopCorner() const noexcept;

    /// Edge length of one pixel in millimetres; 10.0 when the unit is Unitless or the pixels per unit are not
    /// greater than 0. Never throws.
    double getPixelSizeInMillimeter() const noexcept;

    /// Millimetres in one `unit`; 1000.0 for Unitless, Meters and every value outside the enum. Reads nothing
    /// of the object. Never throws.
    double getSizeInMillimeterOfDrawingUnit(DrawingUnit unit) const noexcept;

private:
    struct Path;

    Path* m_path;
    DrawingUnit m_unit;
    double m_width;
    double m_height;
    double m_pixelsPerUnit;
    TripleDouble m_u;
    TripleDouble m_v;
    TripleDouble m_leftBottom;
    TripleDouble m_viewDir;
};
