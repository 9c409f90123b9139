#include <RasterPlanWriterC/RasterPlanWriterC.h>

#include "c/WideText.h"

#include <RasterPlanWriter/RasterPlanWriter.h>
#include <RasterPlanWriter/ResultText.h>

#include <algorithm>
#include <atomic>
#include <exception>
#include <new>
#include <optional>
#include <string>

struct RpwDrawing {
    RasterPlanWriter writer;
    std::atomic<int> owners{1};
};

namespace {

// What an operation answers, or for what it throws: `failure`, but where the memory ran out.
template <typename Operation>
RpwResult guarded(RpwResult failure, const Operation& operation) noexcept {
    try {
        return operation();
    } catch (const std::bad_alloc&) {
        return RpwUnexpectedFailure;
    } catch (const std::exception&) {
        return failure;
    }
}

TripleDouble triple(const double* numbers) {
    return {numbers[0], numbers[1], numbers[2]};
}

void store(const TripleDouble& triple, double* numbers) {
    numbers[0] = triple.x;
    numbers[1] = triple.y;
    numbers[2] = triple.z;
}

template <typename... Pointers>
bool isAnyNull(Pointers... pointers) {
    return (... || !pointers);
}

std::optional<std::wstring> wide(const char* path) {
    return rasterplan::wideText(std::string_view(path));
}

std::optional<std::wstring> wide(const uint16_t* path) {
    return rasterplan::wideText(path);
}

template <typename Character>
RpwResult create(const Character* outPath, RpwDrawing** drawing) {
    if (!drawing)
        return RpwInvalidArgument;
    *drawing = nullptr;
    if (!outPath)
        return RpwInvalidArgument;
    return guarded(RpwUnexpectedFailure, [&]() -> RpwResult {
        const std::optional<std::wstring> path = wide(outPath);
        if (!path)
            return RpwInvalidArgument;
        *drawing = new RpwDrawing{RasterPlanWriter(path->c_str())};
        return RpwSuccess;
    });
}

template <typename Character>
RpwResult add(RpwDrawing* drawing, const Character* picturePath, const double* leftTop,
              const double* leftBottom, const double* rightBottom, double pixelsPerUnit, int32_t unit) {
    if (isAnyNull(drawing, leftTop, leftBottom, rightBottom) || unit < Unitless || unit > USSurveyFeet)
        return RpwInvalidArgument;
    return guarded(RpwInvalidGeometry, [&]() -> RpwResult {
        ImageParam image;
        if (picturePath) {
            const std::optional<std::wstring> path = wide(picturePath);
            if (!path)
                return RpwInvalidArgument;
            image.setImagePath(path->c_str());
        }
        image.setImageCorners(triple(leftTop), triple(leftBottom), triple(rightBottom));
        image.setNumberPixelPerUnit(pixelsPerUnit);
        image.setDrawingUnit(static_cast<DrawingUnit>(unit));
        return drawing->writer.add(image);
    });
}

} // namespace

const char* rpwVersion() {
    return RASTERPLANWRITER_VERSION;
}

const char* rpwResultText(RpwResult result) {
    switch (result) {
    case RpwUnexpectedFailure:
        return "out of memory";
    case RpwInvalidArgument:
        return "an argument is null, a text is no UTF-8, or the unit is unknown";
    case RpwInvalidPlane:
        return "the axes span no plane, or the numbers are too large for one";
    default:
        return resultText(static_cast<RasterPlanWriter::ErrorEnum>(result));
    }
}

RpwResult rpwCreateUtf8(const char* outPath, RpwDrawing** drawing) {
    return create(outPath, drawing);
}

RpwResult rpwCreateUtf16(const uint16_t* outPath, RpwDrawing** drawing) {
    return create(outPath, drawing);
}

void rpwShare(RpwDrawing* drawing) {
    if (drawing)
        drawing->owners.fetch_add(1, std::memory_order_relaxed);
}

void rpwDestroy(RpwDrawing* drawing) {
    if (drawing && drawing->owners.fetch_sub(1, std::memory_order_acq_rel) == 1)
        delete drawing;
}

RpwResult rpwAddUtf8(RpwDrawing* drawing, const char* picturePath, const double* leftTop,
                     const double* leftBottom, const double* rightBottom, double pixelsPerUnit,
                     int32_t unit) {
    return add(drawing, picturePath, leftTop, leftBottom, rightBottom, pixelsPerUnit, unit);
}

RpwResult rpwAddUtf16(RpwDrawing* drawing, const uint16_t* picturePath, const double* leftTop,
                      const double* leftBottom, const double* rightBottom, double pixelsPerUnit,
                      int32_t unit) {
    return add(drawing, picturePath, leftTop, leftBottom, rightBottom, pixelsPerUnit, unit);
}

RpwResult rpwProposePlane(const RpwDrawing* drawing, double* origin, double* xAxis, double* yAxis) {
    if (isAnyNull(drawing, origin, xAxis, yAxis))
        return RpwInvalidArgument;
    return guarded(RpwInvalidPlane, [&]() -> RpwResult {
        TripleDouble o, x, y;
        const RpwResult result = drawing->writer.calcMiddledImagePlaneReferenceCoordSystem3D(o, x, y);
        if (result == RpwSuccess) {
            store(o, origin);
            store(x, xAxis);
            store(y, yAxis);
        }
        return result;
    });
}

RpwResult rpwWrite3d(RpwDrawing* drawing) {
    if (!drawing)
        return RpwInvalidArgument;
    return guarded(RpwUnexpectedFailure, [&]() -> RpwResult { return drawing->writer.create3DDxf(); });
}

RpwResult rpwWrite2d(RpwDrawing* drawing, const double* origin, const double* xAxis, const double* yAxis) {
    if (isAnyNull(drawing, origin, xAxis, yAxis))
        return RpwInvalidArgument;
    return guarded(RpwInvalidPlane, [&]() -> RpwResult {
        return drawing->writer.create2DDxf(triple(origin), triple(xAxis), triple(yAxis));
    });
}

RpwResult rpwMeasure(const double* leftTop, const double* leftBottom, const double* rightBottom,
                     RpwPlace* place) {
    if (isAnyNull(leftTop, leftBottom, rightBottom, place))
        return RpwInvalidArgument;
    return guarded(RpwInvalidGeometry, [&]() -> RpwResult {
        ImageParam image;
        image.setImageCorners(triple(leftTop), triple(leftBottom), triple(rightBottom));
        place->width = image.getImgWidth();
        place->height = image.getImgHeight();
        store(image.getImgUVector(), place->u);
        store(image.getImgVVector(), place->v);
        store(image.getViewDir(), place->viewDirection);
        store(image.getRightTopCorner(), place->rightTop);
        return RpwSuccess;
    });
}

double rpwMillimeters(int32_t unit) {
    return ImageParam().getSizeInMillimeterOfDrawingUnit(static_cast<DrawingUnit>(unit));
}
