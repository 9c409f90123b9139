#pragma once

/** @file
 * RasterPlanWriter for C and for every language and compiler that can call C: writes ortho images as one text
 * DXF drawing (AutoCAD 2010, AC1024).
 *
 * The DXF template "PrepImageAbschnitte_2010.template" must lie in the folder of this library's file.
 *
 * A drawing is used by one thread at a time; different drawings share nothing. No call throws or lets an
 * exception pass. Every `double` pointer is to three numbers: a point in drawing units, or a direction.
 *
 * Texts end with a zero. In UTF-8 the halves of a surrogate pair may stand alone, in three bytes each, and in
 * UTF-16 too, because names of files on Windows hold such; bytes that are no UTF-8 otherwise give
 * RpwInvalidArgument.
 */

#include <stdint.h>

#include "../RasterPlanWriter/Version.h"

#if defined(_WIN32) && !defined(RASTERPLANWRITER_C_STATIC)
#define RPW_API __declspec(dllimport)
#elif defined(__GNUC__) && !defined(_WIN32)
#define RPW_API __attribute__((visibility("default")))
#else
#define RPW_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/// A drawing that images are added to; see rpwCreateUtf8 and rpwDestroy.
typedef struct RpwDrawing RpwDrawing;

/// The outcome of a call: one of the numbers below.
typedef int32_t RpwResult;

enum {
    /// Done. For a write: the whole template was copied; a full disk is not noticed.
    RpwSuccess = 0,
    /// No image has been added yet.
    RpwNoImage = 1,
    /// The image is no rectangle with two sides, or the images have no common plane. Nothing was added or
    /// written.
    RpwInvalidGeometry = 2,
    /// The output file could not be opened for writing.
    RpwCannotOpenOutput = 3,
    /// There is no readable template beside the library. The output file has been emptied.
    RpwCannotOpenTemplate = 4,
    /// The drawing could not be completed: a 3D drawing without images, a template that does not fit, an
    /// image added after a write, a plane so far off that no image is left. What was written is no usable
    /// drawing.
    RpwDxfFailure = 5,
    /// Out of memory. Of an image, parts may have been added; a drawing may have been begun.
    RpwUnexpectedFailure = 6,
    /// An argument is null that must not be, a text is no UTF-8, or the unit is unknown. Nothing was done.
    RpwInvalidArgument = 7,
    /// The plane's axes span no plane (rpwWrite2d), or numbers are too large to find one (rpwProposePlane).
    /// Nothing was opened or written.
    RpwInvalidPlane = 8
};

/// What follows from the three corners of an image. Lengths and points are in drawing units.
typedef struct RpwPlace {
    double width;            ///< Length of the bottom edge.
    double height;           ///< Length of the left edge.
    double u[3];             ///< Unit vector along the bottom edge, to the right.
    double v[3];             ///< Unit vector along the left edge, upwards.
    double viewDirection[3]; ///< u x v: from the picture to who looks at it face-on.
    double rightTop[3];      ///< The corner opposite the left-bottom one.
} RpwPlace;

/// The version of the library as it was loaded, such as "1.0.0"; that of the header is
/// RASTERPLANWRITER_VERSION.
RPW_API const char* rpwVersion(void);

/// A result in words: English, ASCII, without a full stop. The text lives as long as the library; a number
/// that is no result gives "unknown result". Never null.
RPW_API const char* rpwResultText(RpwResult result);

/// Begins a drawing to be written to `outPath`, which is copied; an empty path cannot be opened by any write.
/// Nothing is opened yet. Use one drawing per output file: a second write repeats the records of the first.
///
/// Returns RpwSuccess and the drawing in `*drawing`, which rpwDestroy frees; otherwise RpwInvalidArgument or
/// RpwUnexpectedFailure and a null pointer there.
RPW_API RpwResult rpwCreateUtf8(const char* outPath, RpwDrawing** drawing);

/// As rpwCreateUtf8, with a path in UTF-16.
RPW_API RpwResult rpwCreateUtf16(const uint16_t* outPath, RpwDrawing** drawing);

/// Gives the drawing one owner more, each of whom calls rpwDestroy. Any thread may; null does nothing.
RPW_API void rpwShare(RpwDrawing* drawing);

/// Frees the drawing when its last owner calls it; null does nothing. Writes nothing.
RPW_API void rpwDestroy(RpwDrawing* drawing);

/// Adds one image with its frame.
///
/// - picturePath: the picture's file, written into the drawing exactly as given; it need not exist. Null for
///   none.
/// - leftTop, leftBottom, rightBottom: three corners of the picture, as seen by who looks at it.
/// - pixelsPerUnit: the picture's resolution along both edges in pixels per drawing unit. Times width and
///   height it must give the true pixel counts of the file. Any value is taken; a useful one is above 0.
/// - unit: the unit of all lengths, as in the DXF header variable $INSUNITS: 0 for none, 1 inches, 2 feet, 4
///   millimetres, 5 centimetres, 6 metres; up to 21, as DrawingUnit.h of the C++ library names them.
///
/// Returns RpwSuccess; RpwInvalidGeometry when a side is not longer than 1e-10, the edges are not
/// perpendicular (cosine of their angle above 0.001) or a coordinate is NaN or infinite; RpwInvalidArgument;
/// RpwUnexpectedFailure.
RPW_API RpwResult rpwAddUtf8(RpwDrawing* drawing, const char* picturePath, const double* leftTop,
                             const double* leftBottom, const double* rightBottom, double pixelsPerUnit,
                             int32_t unit);

/// As rpwAddUtf8, with a path in UTF-16.
RPW_API RpwResult rpwAddUtf16(RpwDrawing* drawing, const uint16_t* picturePath, const double* leftTop,
                              const double* leftBottom, const double* rightBottom, double pixelsPerUnit,
                              int32_t unit);

/// Proposes a plane for rpwWrite2d: parallel to the mean of the image planes, with the mean bottom edge as x
/// axis, and with the corner furthest to the left in it as origin (a point).
///
/// Returns RpwSuccess, RpwNoImage, RpwInvalidGeometry when the images have no mean plane, RpwInvalidPlane,
/// RpwInvalidArgument or RpwUnexpectedFailure. Without RpwSuccess the nine numbers are left as they were.
RPW_API RpwResult rpwProposePlane(const RpwDrawing* drawing, double* origin, double* xAxis, double* yAxis);

/// Writes the drawing with every image where it lies in space.
///
/// Returns RpwSuccess, RpwCannotOpenOutput, RpwCannotOpenTemplate, RpwDxfFailure (also without an image),
/// RpwInvalidArgument or RpwUnexpectedFailure.
RPW_API RpwResult rpwWrite3d(RpwDrawing* drawing);

/// Writes the drawing flattened: the axes become the drawing's x and y, and y is lifted by the z of the
/// origin, so that it reads as height where yAxis points upwards. xAxis and yAxis are directions at a right
/// angle, of any length below 1e150.
///
/// Returns RpwSuccess, RpwNoImage, RpwCannotOpenOutput, RpwCannotOpenTemplate, RpwDxfFailure (also for an
/// origin that is NaN or infinite; the file has been overwritten then), RpwInvalidPlane when an axis is zero,
/// NaN or infinite or the axes are found to be parallel, RpwInvalidArgument or RpwUnexpectedFailure.
RPW_API RpwResult rpwWrite2d(RpwDrawing* drawing, const double* origin, const double* xAxis,
                             const double* yAxis);

/// Measures an image without a drawing.
///
/// Returns RpwSuccess; RpwInvalidGeometry when an edge has the length zero; RpwInvalidArgument;
/// RpwUnexpectedFailure. Whether the edges are perpendicular is not looked at. Without RpwSuccess `*place` is
/// left as it was.
RPW_API RpwResult rpwMeasure(const double* leftTop, const double* leftBottom, const double* rightBottom,
                             RpwPlace* place);

/// Millimetres in one unit, a number as for rpwAddUtf8; 1000.0 for 0 and for every number outside 0 to 21.
RPW_API double rpwMillimeters(int32_t unit);

#ifdef __cplusplus
}
#endif
