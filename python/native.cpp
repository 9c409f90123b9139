// The library as the package calls it: values in, results out. A facade lives for one call only, so that no
// file gets the records of another.

#include <RasterPlanWriter/RasterPlanWriter.h>

#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <array>
#include <cstdint>
#include <exception>
#include <memory>
#include <new>
#include <optional>
#include <tuple>
#include <utility>
#include <vector>

namespace {

namespace py = pybind11;

using Result = RasterPlanWriter::ErrorEnum;
using Triple = std::array<double, 3>;
using Image = std::tuple<py::str, Triple, Triple, Triple, double, std::int32_t>;
using Plane = std::tuple<Triple, Triple, Triple>;

struct PythonMemory {
    void operator()(void* memory) const { PyMem_Free(memory); }
};
using WideText = std::unique_ptr<wchar_t, PythonMemory>;

WideText wideText(const py::str& text) {
    Py_ssize_t size = 0;
    WideText wide(PyUnicode_AsWideCharString(text.ptr(), &size));
    if (!wide) {
        PyErr_Clear();
        throw std::bad_alloc();
    }
    return wide;
}

TripleDouble tripleDouble(const Triple& numbers) {
    return {numbers[0], numbers[1], numbers[2]};
}

Triple triple(const TripleDouble& numbers) {
    return {numbers.x, numbers.y, numbers.z};
}

// What the library throws becomes a result: its own exceptions mean an edge or axis without a direction, or a
// plane so far off that the images' coordinates vanish beside it.
template <typename Operation>
Result answer(const Operation& operation) {
    try {
        return operation();
    } catch (const std::bad_alloc&) {
        return RasterPlanWriter::UnexpectedFailure;
    } catch (const std::exception&) {
        return RasterPlanWriter::InvalidGeometry;
    }
}

Result add(RasterPlanWriter& facade, const Image& image) {
    const auto& [path, leftTop, leftBottom, rightBottom, pixelsPerUnit, unit] = image;
    ImageParam param(wideText(path).get());
    param.setImageCorners(tripleDouble(leftTop), tripleDouble(leftBottom), tripleDouble(rightBottom));
    param.setNumberPixelPerUnit(pixelsPerUnit);
    param.setDrawingUnit(static_cast<DrawingUnit>(unit));
    return facade.add(param);
}

Result add(RasterPlanWriter& facade, const std::vector<Image>& images) {
    for (const Image& image : images)
        if (const Result result = add(facade, image); result != RasterPlanWriter::Success)
            return result;
    return RasterPlanWriter::Success;
}

int check(const Image& image) {
    return answer([&] {
        RasterPlanWriter facade;
        return add(facade, image);
    });
}

std::pair<int, Plane> proposedPlane(const std::vector<Image>& images) {
    TripleDouble origin;
    TripleDouble xAxis;
    TripleDouble yAxis;
    const Result result = answer([&] {
        RasterPlanWriter facade;
        const Result added = add(facade, images);
        return added == RasterPlanWriter::Success
                   ? facade.calcMiddledImagePlaneReferenceCoordSystem3D(origin, xAxis, yAxis)
                   : added;
    });
    return {result, {triple(origin), triple(xAxis), triple(yAxis)}};
}

int writeDrawing(const py::str& path, const std::vector<Image>& images, const std::optional<Plane>& plane) {
    return answer([&] {
        RasterPlanWriter facade(wideText(path).get());
        if (const Result added = add(facade, images); added != RasterPlanWriter::Success)
            return added;
        const py::gil_scoped_release othersRun;
        if (!plane)
            return facade.create3DDxf();
        const auto& [origin, xAxis, yAxis] = *plane;
        return facade.create2DDxf(tripleDouble(origin), tripleDouble(xAxis), tripleDouble(yAxis));
    });
}

} // namespace

PYBIND11_MODULE(_native, module) {
    module.attr("version") = RASTERPLAN_PYTHON_VERSION;
    module.def("check", &check, py::arg("image"));
    module.def("proposed_plane", &proposedPlane, py::arg("images"));
    module.def("write", &writeDrawing, py::arg("path"), py::arg("images"), py::arg("plane"));
}
