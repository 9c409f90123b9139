#pragma once

#include "../Path.h"
#include "../Support.h"
#include "ImageParam.h"
#include "TripleDouble.h"

#include <stdint.h>

/// Collects ortho images and writes them as one text DXF drawing (AutoCAD 2010, AC1024). The class of the C++
/// library by name and operations, for whatever compiler; what differs is said. A program uses one of the
/// two.
///
/// Use one object per output file. The DXF template "PrepImageAbschnitte_2010.template" must lie in the
/// folder of the C library's file. An object is used by one thread at a time; different objects share
/// nothing, copies of one object share everything.
///
/// What is thrown derives from std::exception and says less than the C++ library's. Where exceptions are
/// switched off, calls answer with a result instead: UnexpectedFailure where the memory ran out, otherwise
/// DxfFailure.
class RasterPlanWriter {
public:
    /// Outcome of every operation.
    enum ErrorEnum : int32_t {
        Success = RpwSuccess,                       ///< Done; RpwSuccess and its like say more.
        NoImage = RpwNoImage,                       ///< No image has been added yet.
        InvalidGeometry = RpwInvalidGeometry,       ///< No rectangle, or no common plane.
        CannotOpenOutput = RpwCannotOpenOutput,     ///< The output file could not be opened for writing.
        CannotOpenTemplate = RpwCannotOpenTemplate, ///< There is no readable template beside the library.
        DxfFailure = RpwDxfFailure,                 ///< The drawing could not be completed.
        UnexpectedFailure = RpwUnexpectedFailure    ///< Out of memory, or an object without a drawing.
    };

    /// A drawing to be written to "test.dxf" in the current directory. Throws std::bad_alloc.
    RasterPlanWriter()
        : RasterPlanWriter(L"test.dxf") {}

    /// A drawing to be written to `outPath`, which is copied. Nothing is opened yet; a null pointer counts as
    /// an empty path, which no write can open. Throws std::bad_alloc, and another exception where the path
    /// holds a character beyond U+10FFFF; with exceptions switched off the object has no drawing then.
    explicit RasterPlanWriter(const wchar_t* outPath)
        : m_drawing(nullptr) {
        const RpwResult result = rasterplan_c::create(outPath ? outPath : L"", &m_drawing);
        if (result != RpwSuccess)
            rasterplan_c::fail(result);
    }

    /// Both objects share one drawing afterwards; the last of them frees it. Never throws.
    RasterPlanWriter(const RasterPlanWriter& other) noexcept
        : m_drawing(other.m_drawing) {
        rpwShare(m_drawing);
    }

    /// `other` is left without a drawing and answers UnexpectedFailure. Never throws.
    RasterPlanWriter(RasterPlanWriter&& other) noexcept
        : m_drawing(other.m_drawing) {
        other.m_drawing = nullptr;
    }

    /// As the constructors, after giving up the own drawing. Never throws.
    RasterPlanWriter& operator=(RasterPlanWriter other) noexcept {
        RpwDrawing* const drawing = m_drawing;
        m_drawing = other.m_drawing;
        other.m_drawing = drawing;
        return *this;
    }

    ~RasterPlanWriter() { rpwDestroy(m_drawing); }

    /// Adds one image with its frame: four edges and two short marks at its left-bottom corner.
    ///
    /// Returns Success; InvalidGeometry when a side is not longer than 1e-10 drawing units, when the edges
    /// are not perpendicular (cosine of their angle above 0.001) or when a coordinate is NaN or infinite, and
    /// then nothing is added; UnexpectedFailure. Throws where the image's path holds a character beyond
    /// U+10FFFF, of which the C++ library complains when it writes.
    ErrorEnum add(const ImageParam& image) {
        if (!m_drawing)
            return UnexpectedFailure;
        return answer(rasterplan_c::add(m_drawing, image.getImagePath(), image.m_leftTop.of,
                                        image.m_leftBottom.of, image.m_rightBottom.of, image.m_pixelsPerUnit,
                                        image.m_unit));
    }

    /// Proposes a plane for create2DDxf: parallel to the mean of the image planes, with the mean U direction
    /// as x axis, and with the corner furthest to the left in it as origin.
    ///
    /// Returns Success; NoImage; InvalidGeometry when the images have no mean plane; UnexpectedFailure for an
    /// object without a drawing. Throws std::bad_alloc, and another exception where numbers are too large.
    /// Without Success the three arguments are left as they were.
    ErrorEnum calcMiddledImagePlaneReferenceCoordSystem3D(TripleDouble& origin, TripleDouble& xAxis,
                                                          TripleDouble& yAxis) const {
        if (!m_drawing)
            return UnexpectedFailure;
        rasterplan_c::Numbers o, x, y;
        const RpwResult result = rpwProposePlane(m_drawing, o.of, x.of, y.of);
        if (result == RpwUnexpectedFailure)
            rasterplan_c::fail(result);
        if (result == RpwSuccess) {
            origin = rasterplan_c::triple(o.of);
            xAxis = rasterplan_c::triple(x.of);
            yAxis = rasterplan_c::triple(y.of);
        }
        return answer(result);
    }

    /// Writes the drawing flattened: the plane's axes become the drawing's x and y, and y is lifted by
    /// origin.z, so that y reads as height where yAxis points upwards.
    ///
    /// Returns Success, NoImage, CannotOpenOutput, CannotOpenTemplate, DxfFailure or UnexpectedFailure, as
    /// rpwWrite2d says. Throws where that answers RpwInvalidPlane; nothing has been opened then, and it was
    /// no write.
    ErrorEnum create2DDxf(const TripleDouble& origin, const TripleDouble& xAxis, const TripleDouble& yAxis) {
        if (!m_drawing)
            return UnexpectedFailure;
        return answer(rpwWrite2d(m_drawing, rasterplan_c::Numbers(origin).of, rasterplan_c::Numbers(xAxis).of,
                                 rasterplan_c::Numbers(yAxis).of));
    }

    /// Writes the drawing with every image where it lies in space.
    ///
    /// Returns Success, CannotOpenOutput, CannotOpenTemplate, DxfFailure (also when no image was added) or
    /// UnexpectedFailure. Never throws.
    ErrorEnum create3DDxf() { return m_drawing ? answer(rpwWrite3d(m_drawing)) : UnexpectedFailure; }

private:
    static ErrorEnum answer(RpwResult result) {
        if (result <= RpwUnexpectedFailure)
            return static_cast<ErrorEnum>(result);
        rasterplan_c::fail(result);
        return DxfFailure;
    }

    RpwDrawing* m_drawing;
};

/// Returns 42. Tells a host that the library is loaded and callable. Never throws.
inline int fnRasterPlanWriter() {
    return rpwVersion() ? 42 : 0;
}
