#pragma once

#include <cstdint>
#include <cstdio>
#include <string>

namespace bench {

struct Point {
    double x, y, z;
};

/// What a host knows of one ortho image. Lengths and coordinates are metres.
struct Picture {
    std::string path;
    Point leftTop;
    Point leftBottom;
    Point rightBottom;
    double pixelsPerMetre;
};

/// The pictures that every program writes: facades of a town at survey coordinates, eight to a house. Walls
/// are turned by up to 64 degrees and lean by up to one, so that no coordinate is a short number. The first
/// picture hangs upright along the x axis, so that a program without linear algebra knows the drawing's view.
///
/// scene.py makes the same ones. Every number is made by integers and single operations that round correctly,
/// so that all languages agree on every bit.
class Scene {
public:
    /// The next picture; there is no last one.
    Picture next() {
        if (m_number % picturesPerHouse == 0) {
            m_house = {metres(4'468'000'000, 2'000'000), metres(5'333'000'000, 2'000'000),
                       metres(520'000, 60'000)};
        }

        const bool first = m_number == 0;
        const std::int64_t a = 400 + below(200);
        const std::int64_t b = first ? 0 : below(9) - 4;
        const std::int64_t c = first ? 0 : below(9) - 4;
        const std::int64_t d = first ? 0 : below(501) - 250;
        const auto turned = [n = a * a + b * b + c * c + d * d](std::int64_t numerator, double length) {
            return static_cast<double>(numerator) / static_cast<double>(n) * length;
        };
        const double width = metres(3'000, 30'000);
        const double height = metres(2'500, 17'500);
        const Point corner{m_house.x + metres(0, 30'000), m_house.y + metres(0, 30'000),
                           m_house.z + metres(0, 5'000)};

        // The x and z columns of the rotation by the quaternion (a, b, c, d).
        Picture picture;
        picture.leftBottom = corner;
        picture.rightBottom = {corner.x + turned(a * a + b * b - c * c - d * d, width),
                               corner.y + turned(2 * (b * c + a * d), width),
                               corner.z + turned(2 * (b * d - a * c), width)};
        picture.leftTop = {corner.x + turned(2 * (b * d + a * c), height),
                           corner.y + turned(2 * (c * d - a * b), height),
                           corner.z + turned(a * a - b * b - c * c + d * d, height)};
        picture.pixelsPerMetre = static_cast<double>(100 * (1 + below(5)));

        char path[64];
        std::snprintf(path, sizeof path, "D:\\Aufmass\\Haus-%05d\\Fassade-%06d.png",
                      m_number / picturesPerHouse + 1, m_number + 1);
        picture.path = path;
        ++m_number;
        return picture;
    }

private:
    static constexpr int picturesPerHouse = 8;

    /// A pseudo-random number from 0 to `limit` - 1, by a linear congruence modulo 2^64.
    std::int64_t below(std::uint64_t limit) {
        m_state = m_state * 6364136223846793005 + 1442695040888963407;
        return static_cast<std::int64_t>((m_state >> 33) % limit);
    }

    /// `least` millimetres and a random part of `range` more.
    double metres(std::int64_t least, std::uint64_t range) {
        return static_cast<double>(least + below(range)) / 1000.0;
    }

    std::uint64_t m_state = 1;
    int m_number = 0;
    Point m_house{};
};

} // namespace bench
