#pragma once

#include "../Path.h"
#include "../Support.h"
#include "DrawingUnit.h"
#include "TripleDouble.h"

class RasterPlanWriter;

/// One ortho image: its file, its place in space, its resolution and its unit. The class of the C++ library
/// by name and operations, for whatever compiler; what differs is said.
///
/// Every length and coordinate is in the image's drawing unit. The picture's edges are U (along the bottom,
/// to the right) and V (along the left, upwards); both start in the left-bottom corner.
///
/// A copy has a path of its own: copying throws std::bad_alloc where the C++ library's class does not throw.
class ImageParam {
public:
    /// No path, unit Meters, 100 pixels per unit; width, height, corner and vectors are zero. Never throws.
    ImageParam() noexcept
        : m_unit(Meters)
        , m_pixelsPerUnit(100.0)
        , m_place() {}

    /// As ImageParam(), with a copy of `path`; a null pointer gives no path. Throws std::bad_alloc.
    explicit ImageParam(const wchar_t* path)
        : ImageParam() {
        setImagePath(path);
    }

    /// Stores a copy of `path`, the picture's file, which is written into the drawing exactly as given. A
    /// null pointer changes nothing. Throws std::bad_alloc; the path is then as it was.
    void setImagePath(const wchar_t* path) {
        if (path)
            m_path = rasterplan_c::Path(path);
    }

    /// Sets place, size and directions from three corners of the picture, which RasterPlanWriter::add tests
    /// for a right angle.
    ///
    /// When an edge has the length zero, place and size stay as they were, and an exception derived from
    /// std::exception is thrown; where exceptions are switched off nothing else tells.
    void setImageCorners(const TripleDouble& leftTop, const TripleDouble& leftBottom,
                         const TripleDouble& rightBottom) {
        const rasterplan_c::Numbers top(leftTop);
        const rasterplan_c::Numbers corner(leftBottom);
        const rasterplan_c::Numbers right(rightBottom);
        const RpwResult result = rpwMeasure(top.of, corner.of, right.of, &m_place);
        if (result != RpwSuccess)
            return rasterplan_c::fail(result);
        m_leftTop = top;
        m_leftBottom = corner;
        m_rightBottom = right;
    }

    /// Sets the resolution: pixels per drawing unit, the same along both edges. Any value is stored as it is;
    /// a useful one is greater than 0. Never throws.
    void setNumberPixelPerUnit(double pixelsPerUnit) noexcept { m_pixelsPerUnit = pixelsPerUnit; }

    /// Sets the unit. A value outside 0 to 21 changes nothing. Never throws.
    void setDrawingUnit(const DrawingUnit& unit) noexcept {
        if (unit >= Unitless && unit <= USSurveyFeet)
            m_unit = unit;
    }

    /// The picture's path, or a null pointer when none was set. The text belongs to this object and lives
    /// until its path is set anew or it is destroyed. Never throws.
    const wchar_t* getImagePath() const noexcept { return m_path.text(); }

    /// The unit of all lengths and coordinates. Never throws.
    DrawingUnit getDrawingUnit() const noexcept { return m_unit; }

    /// Length of the bottom edge in drawing units; 0 before setImageCorners. Never throws.
    double getImgWidth() const noexcept { return m_place.width; }

    /// Length of the left edge in drawing units; 0 before setImageCorners. Never throws.
    double getImgHeight() const noexcept { return m_place.height; }

    /// Pixels per drawing unit. Never throws.
    double getNumPixelPerUnit() const noexcept { return m_pixelsPerUnit; }

    /// Pixels along the bottom edge: pixels per unit times width, not rounded. Never throws.
    double getNumPixelWidth() const noexcept { return m_pixelsPerUnit * m_place.width; }

    /// Pixels along the left edge: pixels per unit times height, not rounded. Never throws.
    double getNumPixelHeight() const noexcept { return m_pixelsPerUnit * m_place.height; }

    /// Unit vector along the bottom edge, to the right. Never throws.
    TripleDouble getImgUVector() const noexcept { return rasterplan_c::triple(m_place.u); }

    /// Unit vector along the left edge, upwards. Never throws.
    TripleDouble getImgVVector() const noexcept { return rasterplan_c::triple(m_place.v); }

    /// The corner from which U and V start. Never throws.
    TripleDouble getLeftBottomCorner() const noexcept { return rasterplan_c::triple(m_leftBottom.of); }

    /// U x V: the direction from the picture to who looks at it face-on. Never throws.
    TripleDouble getViewDir() const noexcept { return rasterplan_c::triple(m_place.viewDirection); }

    /// The corner opposite the left-bottom one. Never throws.
    TripleDouble getRightTopCorner() const noexcept { return rasterplan_c::triple(m_place.rightTop); }

    /// Edge length of one pixel in millimetres; 10.0 when the unit is Unitless or the pixels per unit are not
    /// greater than 0. Never throws.
    double getPixelSizeInMillimeter() const noexcept {
        return m_pixelsPerUnit > 0.0 && m_unit != Unitless ? rpwMillimeters(m_unit) / m_pixelsPerUnit : 10.0;
    }

    /// Millimetres in one `unit`; 1000.0 for Unitless, Meters and every value outside the enum. Reads nothing
    /// of the object. Never throws.
    double getSizeInMillimeterOfDrawingUnit(DrawingUnit unit) const noexcept { return rpwMillimeters(unit); }

private:
    friend class RasterPlanWriter;

    rasterplan_c::Path m_path;
    DrawingUnit m_unit;
    double m_pixelsPerUnit;
    RpwPlace m_place;
    rasterplan_c::Numbers m_leftTop;
    rasterplan_c::Numbers m_leftBottom;
    rasterplan_c::Numbers m_rightBottom;
};
