#pragma once

#include "Scene.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace bench {

constexpr Point operator+(const Point& a, const Point& b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
constexpr Point operator-(const Point& a, const Point& b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
constexpr Point operator*(const Point& a, double b) {
    return {a.x * b, a.y * b, a.z * b};
}
constexpr Point operator/(const Point& a, double b) {
    return {a.x / b, a.y / b, a.z / b};
}
constexpr Point cross(const Point& a, const Point& b) {
    return {a.y * b.z - a.z * b.y, b.x * a.z - a.x * b.z, a.x * b.y - b.x * a.y};
}
inline double length(const Point& a) {
    return std::sqrt(a.x * a.x + a.y * a.y + a.z * a.z);
}

/// A picture as the drawing says it. Operations and their order are the library's, so that the same digits
/// come out.
struct Placed {
    explicit Placed(Picture picture)
        : corner(picture.leftBottom)
        , width(length(picture.rightBottom - corner))
        , height(length(picture.leftTop - corner))
        , u((picture.rightBottom - corner) / width)
        , v((picture.leftTop - corner) / height)
        , pixelWidth(picture.pixelsPerMetre * width)
        , pixelHeight(picture.pixelsPerMetre * height)
        , pixelMillimetres(1000.0 / picture.pixelsPerMetre)
        , path(std::move(picture.path)) {}

    Point pixelU() const { return u * width / pixelWidth; }
    Point pixelV() const { return v * height / pixelHeight; }

    /// The lines around the picture, from start to end: four edges and two marks at the corner.
    std::array<std::pair<Point, Point>, 6> lines() const {
        const Point rightBottom = corner + u * width;
        const Point leftTop = corner + v * height;
        const Point rightTop = corner + (u * width + v * height);
        const Point markU = u * std::max(width, height);
        const Point markV = v * std::max(width, height);
        return {{{corner, rightBottom},
                 {corner, leftTop},
                 {rightBottom, rightTop},
                 {leftTop, rightTop},
                 {corner - markU / 20.0, corner - markU / 40.0},
                 {corner - markV / 20.0, corner - markV / 40.0}}};
    }

    Point corner;
    double width;
    double height;
    Point u; ///< Unit vector along the bottom edge.
    Point v; ///< Unit vector along the left edge.
    double pixelWidth;
    double pixelHeight;
    double pixelMillimetres;
    std::string path;
};

/// The pictures of a scene, for programs that write the drawing without the library, and what is said of all
/// of them together.
class Drawing {
public:
    explicit Drawing(std::size_t count) {
        Scene scene;
        m_pictures.reserve(count);
        for (std::size_t i = 0; i < count; ++i) {
            m_pictures.emplace_back(scene.next());
            extend(m_pictures.back());
        }
    }

    const std::vector<Placed>& pictures() const { return m_pictures; }

    /// Handles count from the lines' on; a picture takes one for its entity, its definition and its reactor.
    unsigned firstLineHandle() const { return 0x7E; }
    unsigned firstPictureHandle() const { return firstLineHandle() + 6 * number(); }
    unsigned handleSeed() const { return firstPictureHandle() + 3 * number(); }

    /// Visits each picture with the first of its three handles.
    template <typename Visitor>
    void forEachPicture(const Visitor& visit) const {
        unsigned handles = firstPictureHandle();
        for (const Placed& picture : m_pictures) {
            visit(picture, handles);
            handles += 3;
        }
    }

    /// Visits each line with its handle.
    template <typename Visitor>
    void forEachLine(const Visitor& visit) const {
        unsigned handle = firstLineHandle();
        for (const Placed& picture : m_pictures)
            for (const auto& [start, end] : picture.lines())
                visit(handle++, start, end);
    }

    const Point& min() const { return m_min; }
    const Point& max() const { return m_max; }

    /// The view: it looks at the first picture, which hangs upright along the x axis, and shows all.
    Point viewDirection() const { return cross(m_pictures.front().u, m_pictures.front().v); }
    Point viewTarget() const {
        const Point& origin = m_pictures.front().corner;
        const Point centre = m_viewMin + (m_viewMax - m_viewMin) * 0.5;
        return {centre.x + origin.x, origin.y - centre.z, centre.y + origin.z};
    }
    double viewHeight() const { return m_viewMax.y - m_viewMin.y; }
    double viewRatio() const { return (m_viewMax.x - m_viewMin.x) / viewHeight(); }
    static constexpr double viewTwist = -90.0;

private:
    unsigned number() const { return static_cast<unsigned>(m_pictures.size()); }

    void extend(const Placed& picture) {
        const Point& corner = picture.corner;
        const Point farCorner = picture.u * picture.width + corner + picture.v * picture.height;
        const Point tested = corner + picture.u + picture.v;
        m_min = {std::min(m_min.x, corner.x), std::min(m_min.y, corner.y), std::min(m_min.z, corner.z)};
        m_max = {tested.x > m_max.x ? farCorner.x : m_max.x, tested.y > m_max.y ? farCorner.y : m_max.y,
                 tested.z > m_max.z ? farCorner.z : m_max.z};
        see(corner);
        see(corner + (picture.u * picture.width + picture.v * picture.height));
    }

    /// Widens the view; the axes of its plane are x, z and -y.
    void see(const Point& point) {
        const Point& origin = m_pictures.front().corner;
        const Point seen{point.x - origin.x, point.z - origin.z, origin.y - point.y};
        m_viewMin = {std::min(m_viewMin.x, seen.x), std::min(m_viewMin.y, seen.y),
                     std::min(m_viewMin.z, seen.z)};
        m_viewMax = {std::max(m_viewMax.x, seen.x), std::max(m_viewMax.y, seen.y),
                     std::max(m_viewMax.z, seen.z)};
    }

    static constexpr double beyond = 4294967295.0;

    std::vector<Placed> m_pictures;
    Point m_min{beyond, beyond, beyond};
    Point m_max{0, 0, 0};
    Point m_viewMin{beyond, beyond, beyond};
    Point m_viewMax{-beyond, -beyond, -beyond};
};

} // namespace bench
