#include <RasterPlanWriter/RasterPlanWriter.h>

#include "facade/Implementation.h"
#include "facade/MiddledImagePlane.h"
#include "facade/WriteDxf.h"
#include "math/MathError.h"
#include "template/DxfError.h"

#include <memory>
#include <new>
#include <system_error>
#include <utility>

namespace {

// Answers the failures that a host gets as a result; every other exception passes on to it.
template <typename Operation>
RasterPlanWriter::ErrorEnum mapFailures(const Operation& operation) {
    try {
        return operation();
    } catch (const rasterplan::DxfError&) {
        return RasterPlanWriter::DxfFailure;
    } catch (const std::bad_alloc&) {
        return RasterPlanWriter::UnexpectedFailure;
    } catch (const std::system_error&) { // and so the exceptions of streams and of the file system
        return RasterPlanWriter::UnexpectedFailure;
    }
}

} // namespace

RasterPlanWriter::RasterPlanWriter()
    : RasterPlanWriter(L"test.dxf") {}

RasterPlanWriter::RasterPlanWriter(const wchar_t* outPath) {
    auto implementation = std::make_unique<Implementation>();
    if (outPath)
        implementation->outputPath = outPath;
    m_implementation = implementation.release();
}

RasterPlanWriter::RasterPlanWriter(const RasterPlanWriter& other) noexcept
    : m_implementation(other.m_implementation) {
    if (m_implementation)
        m_implementation->facades.fetch_add(1, std::memory_order_relaxed);
}

RasterPlanWriter::RasterPlanWriter(RasterPlanWriter&& other) noexcept
    : m_implementation(std::exchange(other.m_implementation, nullptr)) {}

RasterPlanWriter& RasterPlanWriter::operator=(const RasterPlanWriter& other) noexcept {
    return *this = RasterPlanWriter(other);
}

RasterPlanWriter& RasterPlanWriter::operator=(RasterPlanWriter&& other) noexcept {
    RasterPlanWriter taken(std::move(other));
    std::swap(m_implementation, taken.m_implementation);
    return *this;
}

RasterPlanWriter::~RasterPlanWriter() {
    if (m_implementation && m_implementation->facades.fetch_sub(1, std::memory_order_acq_rel) == 1)
        delete m_implementation;
}

RasterPlanWriter::ErrorEnum RasterPlanWriter::add(const ImageParam& image) {
    if (!m_implementation)
        return UnexpectedFailure;
    return mapFailures([&] { return m_implementation->drawing.add(image) ? Success : InvalidGeometry; });
}

RasterPlanWriter::ErrorEnum
RasterPlanWriter::calcMiddledImagePlaneReferenceCoordSystem3D(TripleDouble& origin, TripleDouble& xAxis,
                                                              TripleDouble& yAxis) const {
    if (!m_implementation)
        return UnexpectedFailure;
    if (m_implementation->drawing.images.count() == 0)
        return NoImage;
    try {
        const rasterplan::ReferencePlane plane = rasterplan::middledImagePlane(m_implementation->drawing);
        origin = plane.origin;
        xAxis = plane.xAxis;
        yAxis = plane.yAxis;
        return Success;
    } catch (const rasterplan::MathError&) {
        return InvalidGeometry;
    }
}

RasterPlanWriter::ErrorEnum RasterPlanWriter::create2DDxf(const TripleDouble& origin,
                                                          const TripleDouble& xAxis,
                                                          const TripleDouble& yAxis) {
    if (!m_implementation)
        return UnexpectedFailure;
    if (m_implementation->drawing.images.count() == 0)
        return NoImage;
    return mapFailures([&] {
        return rasterplan::writeDxf(m_implementation->registry,
                                    rasterplan::ReferencePlane{origin, xAxis, yAxis},
                                    m_implementation->outputPath);
    });
}

RasterPlanWriter::ErrorEnum RasterPlanWriter::create3DDxf() {
    if (!m_implementation)
        return UnexpectedFailure;
    return mapFailures([&] {
        return rasterplan::writeDxf(m_implementation->registry, std::nullopt, m_implementation->outputPath);
    });
}

int fnRasterPlanWriter() {
    return 42;
}

int nRasterPlanWriter = 0;
