// The bytes are the calls of a host and their arguments, any numbers among them. Every call must answer as
// its comment in the public headers says, and a drawing of decent numbers must be whole.

#include "fuzz/Fuzzing.h"
#include "support/StructureWalk.h"
#include "support/TestFolder.h"
#include "support/WideText.h"

#include <RasterPlanWriter/RasterPlanWriter.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <exception>
#include <limits>
#include <utility>
#include <vector>

namespace {

using namespace rasterplan::test;
using rasterplan::fuzz::demand;
using rasterplan::fuzz::fail;
using rasterplan::fuzz::Input;
using Result = RasterPlanWriter::ErrorEnum;

using Limits = std::numeric_limits<double>;

// A number that hosts use, a bad one, or any.
double nextNumber(Input& input) {
    constexpr std::array bad{Limits::quiet_NaN(),
                             Limits::infinity(),
                             -Limits::infinity(),
                             -0.0,
                             Limits::denorm_min(),
                             Limits::max(),
                             Limits::lowest(),
                             1e-11,
                             1e13,
                             1e16,
                             -1e90,
                             1e155};
    const auto kind = input.next<std::uint8_t>();
    if (kind < 200)
        return kind - 100;
    if (kind < 200 + bad.size())
        return bad[kind - 200];
    if (kind < 230)
        return input.next<std::int32_t>() / 1000.0;
    return input.next<double>();
}

TripleDouble nextTriple(Input& input) {
    const double x = nextNumber(input);
    const double y = nextNumber(input);
    return {x, y, nextNumber(input)};
}

std::array<double, 3> coordinates(const TripleDouble& triple) {
    return {triple.x, triple.y, triple.z};
}

bool isFinite(const TripleDouble& triple) {
    return std::isfinite(triple.x) && std::isfinite(triple.y) && std::isfinite(triple.z);
}

bool isWithin(const TripleDouble& triple, double limit) {
    const auto all = coordinates(triple);
    return std::all_of(all.begin(), all.end(), [&](double c) { return std::abs(c) <= limit; });
}

double length(const TripleDouble& triple) {
    return std::hypot(triple.x, triple.y, triple.z);
}

double cosine(const TripleDouble& a, const TripleDouble& b) {
    return (a.x * b.x + a.y * b.y + a.z * b.z) / (length(a) * length(b));
}

bool equal(const TripleDouble& a, const TripleDouble& b) {
    return coordinates(a) == coordinates(b);
}

const std::filesystem::path& drawingFile() {
    static const TestFolder folder;
    static const std::filesystem::path file = folder / "drawing.dxf";
    return file;
}

constexpr const char* untouched = "nobody has opened this";

class Host {
public:
    explicit Host(Input& input)
        : m_input(input) {
        begin();
    }

    void call() {
        switch (m_input.next<std::uint8_t>() % 8) {
        case 0:
            return begin();
        case 1:
        case 2:
            return add();
        case 3:
            return propose();
        case 4:
            m_origin = nextTriple(m_input);
            m_xAxis = nextTriple(m_input);
            m_yAxis = nextTriple(m_input);
            return;
        case 5:
            return write2D();
        case 6:
            return write3D();
        default:
            return copy();
        }
    }

private:
    void begin() {
        static const std::wstring path = wideTextOf(utf8FromPath(drawingFile()));
        m_facade = RasterPlanWriter(path.c_str());
        m_images = 0;
        m_areDecent = true;
        m_wasWritten = false;
        m_wasFlattened = false;
        m_wasAddedLate = false;
    }

    void add() {
        constexpr std::array paths{L"picture.png", L"C:\\Pl\u00e4ne\\S\u00fcd.png", L"", L"pictures/",
                                   L"a/b/c.png"};
        ImageParam image;
        const auto path = m_input.next<std::uint8_t>() % (paths.size() + 1);
        if (path < paths.size())
            image.setImagePath(paths[path]);
        const auto unit = m_input.next<std::int8_t>();
        image.setDrawingUnit(static_cast<DrawingUnit>(unit));
        demand(image.getDrawingUnit() == (unit >= 0 && unit <= 21 ? unit : int{Meters}), "another unit");
        image.setNumberPixelPerUnit(nextNumber(m_input));
        const TripleDouble leftTop = nextTriple(m_input);
        const TripleDouble leftBottom = nextTriple(m_input);
        const TripleDouble rightBottom = nextTriple(m_input);
        try {
            image.setImageCorners(leftTop, leftBottom, rightBottom);
        } catch (const std::exception&) {
            demand(image.getImgWidth() == 0.0, "the corners were refused and taken");
        }
        const Result result = m_facade.add(image);
        demand(result == RasterPlanWriter::Success || result == RasterPlanWriter::InvalidGeometry,
               "add answers " + std::to_string(result));
        if (result != RasterPlanWriter::Success)
            return;
        demand(isFinite(leftTop) && isFinite(leftBottom) && isFinite(rightBottom),
               "no coordinates, yet added");
        ++m_images;
        m_wasAddedLate |= m_wasWritten;
        const double pixels = image.getNumPixelPerUnit();
        m_areDecent &= isWithin(leftTop, 1e6) && isWithin(leftBottom, 1e6) && isWithin(rightBottom, 1e6) &&
                       image.getImgWidth() > 1e-2 && image.getImgHeight() > 1e-2 && pixels > 1e-9 &&
                       pixels < 1e9 && std::abs(cosine(image.getImgUVector(), image.getImgVVector())) < 5e-4;
    }

    void propose() {
        const TripleDouble before(1, 2, 3);
        TripleDouble origin = before;
        TripleDouble xAxis = before;
        TripleDouble yAxis = before;
        const Result result = m_facade.calcMiddledImagePlaneReferenceCoordSystem3D(origin, xAxis, yAxis);
        demand((result == RasterPlanWriter::NoImage) == (m_images == 0), "no images, or are there?");
        if (result == RasterPlanWriter::Success) {
            demand(std::abs(length(xAxis) - 1.0) < 1e-12, "the x axis is no unit vector");
            demand(length(yAxis) < 1.0 + 1e-3, "the y axis is too long"); // one image's own axis, at least
            demand(std::abs(cosine(xAxis, yAxis)) < 1.1e-3 || length(yAxis) < 1e-3, "the axes lean");
            demand(!m_areDecent || isWithin(origin, 1e11), "the origin is far from all images");
            m_origin = origin;
            m_xAxis = xAxis;
            m_yAxis = yAxis;
        } else {
            demand(result == RasterPlanWriter::NoImage || result == RasterPlanWriter::InvalidGeometry,
                   "proposing answers " + std::to_string(result));
            demand(equal(origin, before) && equal(xAxis, before) && equal(yAxis, before),
                   "no plane, yet the arguments have changed");
        }
    }

    void write2D() {
        const bool isZero = equal(m_xAxis, TripleDouble()) || equal(m_yAxis, TripleDouble());
        const bool isBad = isZero || !isFinite(m_xAxis) || !isFinite(m_yAxis);
        writeBytes(drawingFile(), untouched);
        Result result = RasterPlanWriter::Success;
        try {
            result = m_facade.create2DDxf(m_origin, m_xAxis, m_yAxis);
        } catch (const std::exception&) {
            demand(m_images > 0, "there is nothing to flatten, yet it throws");
            demand(readBytes(drawingFile()) == untouched, "it throws and has opened the file");
            const bool isGood = !isBad && m_areDecent && isWithin(m_origin, 1e6) && hasDecentAxes();
            demand(!isGood, "it throws for a good plane");
            return;
        }
        if (m_images == 0) {
            demand(result == RasterPlanWriter::NoImage,
                   "flattening nothing answers " + std::to_string(result));
            demand(readBytes(drawingFile()) == untouched, "flattening nothing has opened the file");
            return;
        }
        // Where the origin leaves no image, nobody looks what the numbers of the axes are.
        demand(!isZero && (!isBad || m_wasWritten || result == RasterPlanWriter::DxfFailure),
               "it takes an axis that is none");
        demand(result == RasterPlanWriter::Success || result == RasterPlanWriter::DxfFailure,
               "create2DDxf answers " + std::to_string(result));
        if (m_areDecent && !m_wasWritten && isWithin(m_origin, 1e6) && hasDecentAxes())
            demandWhole(result);
        m_wasWritten = true;
        m_wasFlattened = true;
    }

    void write3D() {
        Result result = RasterPlanWriter::Success;
        try {
            result = m_facade.create3DDxf();
        } catch (const std::exception& e) {
            fail(std::string("create3DDxf throws ") + e.what());
        }
        demand(result == RasterPlanWriter::Success || result == RasterPlanWriter::DxfFailure,
               "create3DDxf answers " + std::to_string(result));
        if (m_images == 0 || (m_wasAddedLate && !m_wasFlattened))
            demand(result == RasterPlanWriter::DxfFailure, "a drawing that cannot be complete");
        else if (!m_wasFlattened)
            demand(result == RasterPlanWriter::Success, "create3DDxf fails");
        if (m_areDecent && !m_wasWritten && m_images > 0)
            demandWhole(result);
        m_wasWritten = true;
    }

    // Whether the axes span a plane, and the images' coordinates have digits enough to stay rectangles in
    // it.
    bool hasDecentAxes() const {
        return length(m_xAxis) > 1e-100 && length(m_xAxis) < 1e100 && length(m_yAxis) > 1e-100 &&
               length(m_yAxis) < 1e100 && std::abs(cosine(m_xAxis, m_yAxis)) < 0.99;
    }

    void demandWhole(Result result) const {
        demand(result == RasterPlanWriter::Success, "a decent drawing fails with " + std::to_string(result));
        const std::string drawing = readBytes(drawingFile());
        for (const std::string& finding : structureFindings(drawing, framedImages(m_images)))
            fail(finding);
    }

    // What copies and what is moved from answers.
    void copy() {
        RasterPlanWriter taken(std::move(m_facade));
        TripleDouble a, b, c;
        demand(m_facade.add(ImageParam()) ==
                       RasterPlanWriter::UnexpectedFailure && // NOLINT(bugprone-use-after-move)
                   m_facade.create3DDxf() == RasterPlanWriter::UnexpectedFailure &&
                   m_facade.create2DDxf(a, b, c) == RasterPlanWriter::UnexpectedFailure &&
                   m_facade.calcMiddledImagePlaneReferenceCoordSystem3D(a, b, c) ==
                       RasterPlanWriter::UnexpectedFailure,
               "there is a drawing where it was moved from");
        const RasterPlanWriter shared(taken);
        m_facade = shared;
    }

    Input& m_input;
    RasterPlanWriter m_facade;
    TripleDouble m_origin;
    TripleDouble m_xAxis{1, 0, 0};
    TripleDouble m_yAxis{0, 0, 1};
    std::size_t m_images = 0;
    bool m_areDecent = true; // All images have usual numbers.
    bool m_wasWritten = false;
    bool m_wasFlattened = false;
    bool m_wasAddedLate = false; // After a write.
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    Host host(input);
    for (int calls = 0; !input.empty() && calls < 40; ++calls)
        host.call();
    return 0;
}
