#pragma once

/// @file
/// The writer of drawings, and two names by which a host tells that the library is there.

#include <RasterPlanWriter/Export.h>
#include <RasterPlanWriter/ImageParam.h>
#include <RasterPlanWriter/TripleDouble.h>

#include <cstdint>

/// Collects ortho images and writes them as one text DXF drawing (AutoCAD 2010, AC1024).
///
/// Use one object per output file. A second write on the same object does not repeat the drawing: it contains
/// the records of both writes, and an image added after a write makes every later write fail with DxfFailure.
/// A write that failed with one of the results 3 to 6 was a write too: try again with a new object.
///
/// The DXF template "PrepImageAbschnitte_2010.template" must lie in the folder of the file that holds the
/// library's code. On Linux that is the file itself, where a link leads to it, and /proc must tell it.
///
/// Which calls can throw: the constructors and calcMiddledImagePlaneReferenceCoordSystem3D (std::bad_alloc),
/// and create2DDxf and create3DDxf where their comments say so. Results 1 to 6 report everything else.
///
/// An object is used by one thread at a time; different objects share nothing, copies of one object share
/// everything.
class RASTERPLANWRITER_API RasterPlanWriter {
public:
    /// Outcome of every operation.
    enum ErrorEnum : std::int32_t {
        /// The operation completed. For a write: the whole template was copied; a full disk is not noticed.
        Success = 0,
        /// No image has been added yet.
        NoImage = 1,
        /// The image is not a rectangle with two sides (add), or the images have no common plane
        /// (calcMiddledImagePlaneReferenceCoordSystem3D). Nothing was added or written.
        InvalidGeometry = 2,
        /// The output file could not be opened for writing, be it that the system's own opening of a file ran
        /// out of memory.
        CannotOpenOutput = 3,
        /// There is no readable template beside the library, or the system's own opening of a file ran out of
        /// memory. The output file has been emptied.
        CannotOpenTemplate = 4,
        /// The drawing could not be completed: a 3D drawing without images, a template with an unknown
        /// placeholder or a line of more than 511 characters, an image added after a write, a plane so far
        /// off that no image is left. What was written so far is not a usable drawing.
        DxfFailure = 5,
        /// Out of memory, or a facade that was moved from. Of an image, parts may have been added; a drawing
        /// may have been begun.
        UnexpectedFailure = 6
    };

    /// A drawing to be written to "test.dxf" in the current directory. Throws std::bad_alloc.
    RasterPlanWriter();

    /// A drawing to be written to `outPath`, which is copied. Nothing is opened yet; a null pointer counts as
    /// an empty path, which no write can open. Throws std::bad_alloc.
    explicit RasterPlanWriter(const wchar_t* outPath);

    /// Both objects share one drawing afterwards; the last of them frees it. Never throws.
    RasterPlanWriter(const RasterPlanWriter& other) noexcept;

    /// `other` is left without a drawing and answers UnexpectedFailure. Never throws.
    RasterPlanWriter(RasterPlanWriter&& other) noexcept;

    /// As the copy constructor, after giving up the own drawing. Never throws.
    RasterPlanWriter& operator=(const RasterPlanWriter& other) noexcept;

    /// As the move constructor, after giving up the own drawing. Never throws.
    RasterPlanWriter& operator=(RasterPlanWriter&& other) noexcept;

    ~RasterPlanWriter();

    /// Adds one image with its frame: four edges and two short marks at its left-bottom corner.
    ///
    /// Returns Success; InvalidGeometry when a side is not longer than 1e-10 drawing units, when the edges
    /// are not perpendicular (cosine of their angle above 0.001) or when a coordinate is NaN or infinite, and
    /// then nothing is added; UnexpectedFailure. Never throws.
    ErrorEnum add(const ImageParam& image);

    /// Proposes a plane for create2DDxf: parallel to the mean of the image planes, with the mean U direction
    /// as x axis, and with the corner furthest to the left in it as origin.
    ///
    /// origin: a point in drawing units. xAxis: a unit vector. yAxis: perpendicular to xAxis in the plane;
    /// its length is the sine of the angle between the plane's normal and the x axis, 1 when all images are
    /// parallel.
    ///
    /// Returns Success; NoImage; InvalidGeometry when the normals or the U vectors cancel out, or their means
    /// are exactly parallel; UnexpectedFailure for a facade that was moved from. Throws std::bad_alloc.
    /// Without Success the three arguments are left as they were.
    ErrorEnum calcMiddledImagePlaneReferenceCoordSystem3D(TripleDouble& origin, TripleDouble& xAxis,
                                                          TripleDouble& yAxis) const;

    /// Writes the drawing flattened: the plane's axes become the drawing's x and y, and y is lifted by
    /// origin.z, so that y reads as height where yAxis points upwards.
    ///
    /// origin is a point in drawing units; xAxis and yAxis are directions at a right angle to each other, of
    /// any length below 1e150. z is the distance from the plane. Seen along z, the frame lines lie on their
    /// picture where the image's V is yAxis; those of images turned in the plane or leaning against it are
    /// displaced, the pictures are not. origin.z is added to y in every plane, a horizontal one too.
    ///
    /// Returns Success, NoImage (nothing is opened then), CannotOpenOutput, CannotOpenTemplate, DxfFailure
    /// (also for an origin that is NaN or infinite; the file has been overwritten then) or UnexpectedFailure.
    /// Throws an exception derived from std::exception when an axis is zero, NaN or infinite (of the last two
    /// not when the origin leaves no image), or when the axes are equal or opposite and
    /// perpendicular to a coordinate axis; nothing has been opened then, and it was no write. Other parallel
    /// axes may not be noticed and give coordinates without meaning. Throws as create3DDxf where a path
    /// cannot be written. The object's own drawing is not changed.
    ///
    /// An origin so far off that the images' coordinates lose their digits beside it (for images of some
    /// metres from about 1e13 on) leaves images out, and further off ends with DxfFailure or an exception.
    ErrorEnum create2DDxf(const TripleDouble& origin, const TripleDouble& xAxis, const TripleDouble& yAxis);

    /// Writes the drawing with every image where it lies in space.
    ///
    /// Returns Success, CannotOpenOutput, CannotOpenTemplate, DxfFailure (also when no image was added) or
    /// UnexpectedFailure. Throws an exception derived from std::exception when an image's path holds a
    /// character beyond U+10FFFF; the file has been overwritten then.
    ErrorEnum create3DDxf();

private:
    struct Implementation;
    Implementation* m_implementation;
};

/// Returns 42. Tells a host that the library is loaded and callable. Never throws.
RASTERPLANWRITER_API int fnRasterPlanWriter();

/// A spare variable, 0 at start. The library neither reads nor writes it.
extern RASTERPLANWRITER_API int nRasterPlanWriter;
