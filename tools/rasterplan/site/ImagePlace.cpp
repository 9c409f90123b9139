#include "site/ImagePlace.h"

#include <array>
#include <string_view>

namespace rasterplan_tool {
namespace {

bool samePoint(const TripleDouble& a, const TripleDouble& b) {
    return a.x == b.x && a.y == b.y && a.z == b.z;
}

CornerPlace readCorners(const ObjectReader& reader) {
    const CornerPlace place{reader.point("leftTop"), reader.point("leftBottom"), reader.point("rightBottom"),
                            reader.positive("pixelsPerUnit")};
    for (const std::string_view corner : {"leftTop", "rightBottom"}) {
        if (samePoint(corner == "leftTop" ? place.leftTop : place.rightBottom, place.leftBottom)) {
            reader.failField(*reader.find(corner), corner,
                             "is the same point as leftBottom; correct one of them");
        }
    }
    return place;
}

DirectionPlace readDirections(const ObjectReader& reader) {
    return {reader.point("leftBottom"), reader.direction("right"), reader.direction("up"),
            reader.positive("pixelsPerUnit")};
}

MapPlace readMap(const ObjectReader& reader) {
    MapPlace place;
    if (reader.find("worldFile") != nullptr)
        place.worldFile = reader.path("worldFile", R"("worldFile": "plan.pgw")");
    if (reader.find("plane") != nullptr) {
        if (const JsonValue* const elevation = reader.find("elevation")) {
            reader.failField(*elevation, "elevation",
                             "is the height of the ground plane, but another plane is given; leave one out");
        }
        const ObjectReader plane = reader.object("plane");
        plane.allowOnly({"origin", "xAxis", "yAxis"});
        place.origin = plane.point("origin");
        place.xAxis = plane.direction("xAxis");
        place.yAxis = plane.direction("yAxis");
    }
    place.origin.z = reader.coordinate("elevation", place.origin.z);
    return place;
}

enum class Way { ByCorners, ByDirections, ByMap };

struct WayField {
    std::string_view name;
    Way way;
};

constexpr std::array<WayField, 7> wayFields{{
    {"leftTop", Way::ByCorners},
    {"rightBottom", Way::ByCorners},
    {"right", Way::ByDirections},
    {"up", Way::ByDirections},
    {"worldFile", Way::ByMap},
    {"plane", Way::ByMap},
    {"elevation", Way::ByMap},
}};

constexpr std::array<std::string_view, 2> fieldsOfCornersAndDirections{"leftBottom", "pixelsPerUnit"};

[[noreturn]] void refuseBoth(const ObjectReader& reader, std::string_view name, std::string_view otherName) {
    reader.fail(
        "has the fields \"" + std::string(name) + "\" and \"" + std::string(otherName) +
        "\", which place it in different ways; write either leftTop, leftBottom, rightBottom and "
        "pixelsPerUnit, or leftBottom, right, up and pixelsPerUnit, or, for a picture with a world file "
        "or a GeoTIFF, at most worldFile and plane or elevation");
}

Way wayOf(const ObjectReader& reader) {
    const WayField* given = nullptr;
    for (const WayField& field : wayFields) {
        if (reader.find(field.name) == nullptr)
            continue;
        if (given != nullptr && given->way != field.way)
            refuseBoth(reader, given->name, field.name);
        given = &field;
    }
    for (const std::string_view name : fieldsOfCornersAndDirections) {
        if (reader.find(name) == nullptr)
            continue;
        if (given == nullptr)
            return Way::ByCorners;
        if (given->way == Way::ByMap)
            refuseBoth(reader, name, given->name);
    }
    return given == nullptr ? Way::ByMap : given->way;
}

} // namespace

ImagePlace readPlace(const ObjectReader& reader) {
    switch (wayOf(reader)) {
    case Way::ByCorners:
        return readCorners(reader);
    case Way::ByDirections:
        return readDirections(reader);
    case Way::ByMap:
        break;
    }
    return readMap(reader);
}

} // namespace rasterplan_tool
