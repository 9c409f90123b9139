#include "ExportedDrawing.h"

#include "Triple.h"
#include "host/Scene.h"
#include "support/TestFolder.h"
#include "support/WideText.h"

#include <charconv>
#include <functional>
#include <stdexcept>
#include <utility>

namespace rasterplan::test {
namespace {

double number(const std::string& text) {
    double value = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size())
        throw std::runtime_error("no number: \"" + text + '"');
    return value;
}

TripleDouble triple(const DxfRecord& record, int code) {
    return {number(record.value(code)), number(record.value(code + 10)), number(record.value(code + 20))};
}

const DxfRecord& withHandle(const std::vector<DxfRecord>& records, const std::string& handle) {
    for (const DxfRecord& record : records)
        if (record.handle() == handle)
            return record;
    throw std::runtime_error("no record has the handle " + handle);
}

ExportedDrawing exported(const std::vector<ImageParam>& images,
                         const std::function<RasterPlanWriter::ErrorEnum(RasterPlanWriter&)>& write) {
    const TestFolder folder;
    const std::filesystem::path file = folder / "drawing.dxf";
    RasterPlanWriter facade(wideTextOf(utf8FromPath(file)).c_str());
    const auto demand = [](RasterPlanWriter::ErrorEnum result) {
        if (result != RasterPlanWriter::Success)
            throw std::runtime_error(nameOf(result));
    };
    for (const ImageParam& image : images)
        demand(facade.add(image));
    demand(write(facade));
    return readDrawing(readBytes(file));
}

} // namespace

std::vector<std::string> ExportedDrawing::variable(std::string_view name) const {
    for (const DxfVariable& found : headerVariables(records)) {
        if (found.name == name) {
            std::vector<std::string> values;
            for (const DxfGroup& group : found.groups)
                values.push_back(group.value);
            return values;
        }
    }
    throw std::runtime_error("no variable " + std::string(name));
}

const DxfRecord& ExportedDrawing::first(std::string_view type) const {
    for (const DxfRecord& record : records)
        if (record.type == type)
            return record;
    throw std::runtime_error("no " + std::string(type));
}

ExportedDrawing readShapes(const std::vector<DxfRecord>& records) {
    ExportedDrawing drawing;
    for (const DxfRecord& record : records) {
        if (record.type == "IMAGE") {
            const TripleDouble corner = triple(record, 10);
            drawing.images.push_back(
                {corner, plus(corner, times(triple(record, 11), number(record.value(13)))),
                 plus(corner, times(triple(record, 12), number(record.value(23)))), std::string()});
        } else if (record.type == "LINE") {
            drawing.lines.push_back({triple(record, 10), triple(record, 11)});
        }
    }
    return drawing;
}

ExportedDrawing readDrawing(std::string bytes) {
    std::vector<DxfRecord> records = strictRecords(strictGroups(bytes));
    ExportedDrawing drawing = readShapes(records);
    auto image = drawing.images.begin();
    for (const DxfRecord& record : records)
        if (record.type == "IMAGE")
            (image++)->path = withHandle(records, record.value(340)).value(1);
    drawing.bytes = std::move(bytes);
    drawing.records = std::move(records);
    return drawing;
}

ImageParam imageAt(const TripleDouble& leftTop, const TripleDouble& leftBottom,
                   const TripleDouble& rightBottom, const wchar_t* path) {
    ImageParam image(path);
    image.setImageCorners(leftTop, leftBottom, rightBottom);
    return image;
}

ImageParam lyingAt(double x, double y, double z, double width, double height) {
    return imageAt({x, y + height, z}, {x, y, z}, {x + width, y, z});
}

ExportedDrawing exported3D(const std::vector<ImageParam>& images) {
    return exported(images, [](RasterPlanWriter& facade) { return facade.create3DDxf(); });
}

ExportedDrawing exported2D(const std::vector<ImageParam>& images, const TripleDouble& origin,
                           const TripleDouble& xAxis, const TripleDouble& yAxis) {
    return exported(images,
                    [&](RasterPlanWriter& facade) { return facade.create2DDxf(origin, xAxis, yAxis); });
}

ExportedDrawing exported2D(const std::vector<ImageParam>& images) {
    return exported(images, [](RasterPlanWriter& facade) {
        TripleDouble origin;
        TripleDouble xAxis;
        TripleDouble yAxis;
        const auto result = facade.calcMiddledImagePlaneReferenceCoordSystem3D(origin, xAxis, yAxis);
        return result == RasterPlanWriter::Success ? facade.create2DDxf(origin, xAxis, yAxis) : result;
    });
}

} // namespace rasterplan::test
