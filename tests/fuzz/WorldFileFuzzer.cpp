// The input is a world file. It is read or refused in words that a terminal may get; what it places is a
// rectangle of the picture's pixels, or is refused too.

#include "fuzz/Fuzzing.h"

#include "base/Failure.h"
#include "base/Vector.h"
#include "base/VisibleText.h"
#include "picture/WorldFile.h"
#include "site/Placement.h"

#include <cmath>
#include <string>
#include <string_view>

namespace {

using namespace rasterplan_tool;
using rasterplan::fuzz::demand;

void demandWords(const std::exception& error) {
    const std::string_view text = error.what();
    demand(!text.empty() && visible(text) == text, "a failure without words that can be shown");
}

bool agree(double a, double b) {
    return std::abs(a - b) < 1e-6 * std::abs(b);
}

void demandRectangle(const MapTransform& transform) {
    constexpr PixelSize size{17, 9};
    const Manifest manifest{"SITE.json", Meters, {{1, "a.png", "", MapPlace{}, Meters}}};
    const Picture picture{PictureFormat::Png, size, false, std::nullopt};
    const CornerPlace place = placeImages(manifest, {{{}, picture, WorldFile{"a.pgw", transform}}}).front();
    const double pixel = 1.0 / place.pixelsPerUnit;
    if (std::abs(transform.x) > 1e6 * pixel || std::abs(transform.y) > 1e6 * pixel)
        return; // beside such coordinates the pixels lose digits
    const TripleDouble width = place.rightBottom - place.leftBottom;
    const TripleDouble height = place.leftTop - place.leftBottom;
    demand(agree(length(width), size.width * pixel), "another width");
    demand(agree(length(height), size.height * pixel), "another height");
    demand(agree(angleDegrees(width, height), 90.0), "no right angle");
    demand(cross(width, height).z > 0.0, "seen from below");
    demand(length(place.leftTop - TripleDouble(transform.x, transform.y, 0.0)) < 1e-6 * pixel,
           "another place");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        demandRectangle(parseWorldFile({reinterpret_cast<const char*>(data), size}));
    } catch (const WorldFileError& error) {
        demandWords(error);
    } catch (const BadInput& failure) {
        demandWords(failure);
    }
    return 0;
}
