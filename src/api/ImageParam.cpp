#include <RasterPlanWriter/ImageParam.h>

#include "math/MathPoint3d.h"
#include "math/MathVector3d.h"

#include <array>
#include <atomic>
#include <cstdint>
#include <string>
#include <utility>

using rasterplan::MathPoint3d;
using rasterplan::MathVector3d;

namespace {

constexpr double defaultPixelsPerUnit = 100.0;
constexpr double unknownPixelSize = 10.0;

// Indexed by DrawingUnit. The astronomical ones are rounded like this on purpose: drawings are compared.
constexpr std::array<double, 22> metresPerUnit{
    1.0,               // Unitless
    0.0254,            // Inches
    0.3048,            // Feet
    1609.344,          // Miles
    0.001,             // Millimeters
    0.01,              // Centimeters
    1.0,               // Meters
    1000.0,            // Kilometers
    2.54e-8,           // Microinches
    2.54e-5,           // Mils
    0.9144,            // Yards
    1e-10,             // Angstroms
    1e-9,              // Nanometers
    1e-6,              // Microns
    0.1,               // Decimeters
    10.0,              // Decameters
    100.0,             // Hectometers
    1e9,               // Gigameters
    1.4959787e11,      // AstronomicalUnits
    9.46053e15,        // LightYears
    3.085677e16,       // Parsecs
    0.3048006096012192 // USSurveyFeet
};

bool isKnown(DrawingUnit unit) noexcept {
    return static_cast<std::uint32_t>(unit) < metresPerUnit.size();
}

// Puts `path` in the place of another, which is freed with its last image. A member would be exported.
template <typename Path>
void replacePath(Path*& place, Path* path) noexcept {
    Path* const before = std::exchange(place, path);
    if (before && before->images.fetch_sub(1, std::memory_order_acq_rel) == 1)
        delete before;
}

} // namespace

// The path of an image and of all its copies. It never changes, so that they share it: a copy takes no
// memory.
struct ImageParam::Path {
    std::wstring text;
    std::atomic<std::uint32_t> images{1};
};

ImageParam::ImageParam() noexcept
    : m_path(nullptr)
    , m_unit(Meters)
    , m_width(0.0)
    , m_height(0.0)
    , m_pixelsPerUnit(defaultPixelsPerUnit) {}

ImageParam::ImageParam(const wchar_t* path)
    : ImageParam() {
    setImagePath(path);
}

ImageParam::ImageParam(const ImageParam& other) noexcept
    : m_path(other.m_path)
    , m_unit(other.m_unit)
    , m_width(other.m_width)
    , m_height(other.m_height)
    , m_pixelsPerUnit(other.m_pixelsPerUnit)
    , m_u(other.m_u)
    , m_v(other.m_v)
    , m_leftBottom(other.m_leftBottom)
    , m_viewDir(other.m_viewDir) {
    if (m_path)
        m_path->images.fetch_add(1, std::memory_order_relaxed);
}

ImageParam::ImageParam(ImageParam&& other) noexcept
    : ImageParam() {
    *this = std::move(other);
}

ImageParam& ImageParam::operator=(const ImageParam& other) noexcept {
    return *this = ImageParam(other);
}

ImageParam& ImageParam::operator=(ImageParam&& other) noexcept {
    replacePath(m_path, std::exchange(other.m_path, nullptr));
    m_unit = other.m_unit;
    m_width = other.m_width;
    m_height = other.m_height;
    m_pixelsPerUnit = other.m_pixelsPerUnit;
    m_u = other.m_u;
    m_v = other.m_v;
    m_leftBottom = other.m_leftBottom;
    m_viewDir = other.m_viewDir;
    return *this;
}

ImageParam::~ImageParam() {
    replacePath<Path>(m_path, nullptr);
}

void ImageParam::setImagePath(const wchar_t* path) {
    if (path)
        replacePath(m_path, new Path{path});
}

void ImageParam::setImageCorners(const TripleDouble& leftTop, const TripleDouble& leftBottom,
                                 const TripleDouble& rightBottom) {
    const MathPoint3d corner = leftBottom;
    const MathVector3d u = (MathPoint3d(rightBottom) - corner).normalized();
    const MathVector3d v = (MathPoint3d(leftTop) - corner).normalized();
    m_height = distance(leftTop, corner);
    m_width = distance(corner, rightBottom);
    m_leftBottom = corner;
    m_u = u;
    m_v = v;
    m_viewDir = cross(u, v);
}

void ImageParam::setNumberPixelPerUnit(double pixelsPerUnit) noexcept {
    m_pixelsPerUnit = pixelsPerUnit;
}

void ImageParam::setDrawingUnit(const DrawingUnit& unit) noexcept {
    if (isKnown(unit))
        m_unit = unit;
}

const wchar_t* ImageParam::getImagePath() const noexcept {
    return m_path ? m_path->text.c_str() : nullptr;
}

DrawingUnit ImageParam::getDrawingUnit() const noexcept {
    return m_unit;
}

double ImageParam::getImgWidth() const noexcept {
    return m_width;
}

double ImageParam::getImgHeight() const noexcept {
    return m_height;
}

double ImageParam::getNumPixelPerUnit() const noexcept {
    return m_pixelsPerUnit;
}

double ImageParam::getNumPixelWidth() const noexcept {
    return m_pixelsPerUnit * m_width;
}

double ImageParam::getNumPixelHeight() const noexcept {
    return m_pixelsPerUnit * m_height;
}

TripleDouble ImageParam::getImgUVector() const noexcept {
    return m_u;
}

TripleDouble ImageParam::getImgVVector() const noexcept {
    return m_v;
}

TripleDouble ImageParam::getLeftBottomCorner() const noexcept {
    return m_leftBottom;
}

TripleDouble ImageParam::getViewDir() const noexcept {
    return m_viewDir;
}

TripleDouble ImageParam::getRightTopCorner() const noexcept {
    const MathVector3d diagonal = MathVector3d(m_u) * m_width + MathVector3d(m_v) * m_height;
    return MathPoint3d(m_leftBottom) + diagonal;
}

double ImageParam::getPixelSizeInMillimeter() const noexcept {
    return m_pixelsPerUnit > 0.0 && m_unit != Unitless
               ? getSizeInMillimeterOfDrawingUnit(m_unit) / m_pixelsPerUnit
               : unknownPixelSize;
}

double ImageParam::getSizeInMillimeterOfDrawingUnit(DrawingUnit unit) const noexcept {
    return (isKnown(unit) ? metresPerUnit[static_cast<std::size_t>(unit)] : 1.0) * 1000.0;
}
