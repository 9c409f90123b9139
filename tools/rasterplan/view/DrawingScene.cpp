#include "view/DrawingScene.h"

#include "base/Failure.h"
#include "base/PathText.h"
#include "base/Vector.h"
#include "base/VisibleText.h"
#include "reader/DxfForm.h"
#include "reader/DxfRecords.h"
#include "site/UnitNames.h"
#include "view/DxfText.h"
#include "view/FileBytes.h"

#include <array>
#include <cstdint>
#include <map>
#include <utility>

namespace fs = std::filesystem;

namespace rasterplan_tool {
namespace {

struct UnitSymbol {
    int insunits;
    std::string_view symbol;
};

constexpr std::array<UnitSymbol, 9> unitSymbols{{
    {1, "in"},
    {2, "ft"},
    {3, "mi"},
    {4, "mm"},
    {5, "cm"},
    {6, "m"},
    {7, "km"},
    {10, "yd"},
    {14, "dm"},
}};

// Nothing for no unit, and for a number that is none.
std::string_view symbolOf(double insunits) {
    for (const UnitSymbol& row : unitSymbols)
        if (row.insunits == insunits)
            return row.symbol;
    const bool isUnit = insunits >= 1.0 && insunits <= static_cast<int>(USSurveyFeet);
    return isUnit ? unitName(static_cast<DrawingUnit>(static_cast<int>(insunits))) : std::string_view();
}

std::string textOfDrawing(const fs::path& file) {
    std::optional<std::string> text = readFileBytes(file);
    if (!text) {
        throw BadInput(quoted(file) +
                       ": the drawing cannot be opened; name a DXF file that exists and may be read");
    }
    return *std::move(text);
}

bool isFinite(const TripleDouble& a) {
    return length(a) <= 1e300;
}

class SceneReader {
public:
    explicit SceneReader(const fs::path& file)
        : m_name(quoted(file))
        , m_records(recordsOf(textOfDrawing(file))) {}

    DrawingScene read() {
        for (const DxfRecord& record : m_records)
            if (const std::optional<std::uint64_t> handle = handleNumber(record.handle());
                handle && record.type == "IMAGEDEF")
                m_definitions[*handle] = &record;
        for (const DxfRecord& record : m_records) {
            const bool isInModelSpace =
                record.section == "ENTITIES" && record.number(67).value_or(0.0) == 0.0;
            if (isInModelSpace && record.type == "IMAGE")
                m_scene.pictures.push_back(picture(record));
            else if (isInModelSpace && record.type == "LINE")
                m_scene.lines.push_back({triple(record, 10), triple(record, 11)});
            else if (record.type == "VPORT" && isActive(record) && !m_scene.viewport)
                m_scene.viewport = viewport(record);
        }
        for (const DxfVariable& variable : headerVariables(m_records))
            if (variable.name == "$INSUNITS" && !variable.groups.empty())
                m_scene.unit = symbolOf(realNumber(variable.groups.front().value).value_or(0.0));
        return std::move(m_scene);
    }

private:
    [[noreturn]] void fail(std::size_t line, const std::string& text) const {
        throw BadInput(m_name + ", line " + std::to_string(line) + ": " + text);
    }

    std::vector<DxfRecord> recordsOf(const std::string& text) const {
        switch (formOf(text)) {
        case DxfForm::Dwg:
            throw BadInput(m_name + ": this is a DWG drawing; save it as text DXF");
        case DxfForm::Binary:
            throw BadInput(m_name + ": this is a binary DXF; save it as text DXF");
        case DxfForm::Text:
            break;
        }
        DxfDrawing drawing = readDrawing(text);
        for (const DxfFault& fault : drawing.faults)
            if (fault.kind != DxfFaultKind::BehindEnd)
                fail(fault.line,
                     visible(fault.text) + "; this is no whole DXF drawing: write or save it again");
        return std::move(drawing.records);
    }

    double number(const DxfRecord& record, int code) const {
        const std::optional<double> number = record.number(code);
        if (!number) {
            fail(record.line, "the " + visible(record.type) + " has no number at code " +
                                  std::to_string(code) + "; write or save the drawing again");
        }
        return *number;
    }

    TripleDouble triple(const DxfRecord& record, int code) const {
        return {number(record, code), number(record, code + 10), record.number(code + 20).value_or(0.0)};
    }

    ScenePicture picture(const DxfRecord& image) const {
        constexpr unsigned show = 1;
        ScenePicture picture;
        const auto definition = m_definitions.find(handleNumber(image.value(340)).value_or(0));
        if (definition != m_definitions.end())
            picture.path = textFromDxf(definition->second->value(1));
        picture.leftBottom = triple(image, 10);
        picture.pixelU = triple(image, 11);
        picture.pixelV = triple(image, 12);
        picture.pixelsAcross = number(image, 13);
        picture.pixelsUpright = number(image, 23);
        picture.isShown = (static_cast<unsigned>(image.number(70).value_or(show)) & show) != 0;
        const TripleDouble area = cross(picture.pixelU, picture.pixelV);
        if (!(picture.pixelsAcross > 0.0 && picture.pixelsUpright > 0.0 && length(area) > 0.0 &&
              isFinite(area) && isFinite(picture.leftBottom)))
            fail(image.line,
                 "the IMAGE has no area; take it out or give it one in the program that wrote the drawing");
        return picture;
    }

    static bool isActive(const DxfRecord& vport) {
        const std::string& name = vport.value(2);
        return name == "*ACTIVE" || name == "*Active";
    }

    // The axes of a view follow from its direction alone, and are turned by the twist.
    static std::optional<SceneViewport> viewport(const DxfRecord& vport) {
        constexpr double nearlyUpright = 1.0 / 64.0;
        constexpr double degreesPerRadian = 57.295779513082320877;
        const auto at = [&vport](int code) { return vport.number(code).value_or(0.0); };
        SceneViewport view;
        view.towards = direction({at(16), at(26), at(36)});
        view.height = at(40);
        view.ratio = at(41) > 0.0 ? at(41) : 1.0;
        if (!(length(view.towards) > 0.0 && view.height > 0.0))
            return std::nullopt; // a drawing without pictures has no view
        const bool isFromAbove =
            std::abs(view.towards.x) < nearlyUpright && std::abs(view.towards.y) < nearlyUpright;
        const TripleDouble right =
            direction(cross(isFromAbove ? TripleDouble(0, 1, 0) : TripleDouble(0, 0, 1), view.towards));
        const TripleDouble upright = cross(view.towards, right);
        const double twist = at(51) / degreesPerRadian;
        view.up = std::sin(twist) * right + std::cos(twist) * upright;
        const TripleDouble turnedRight = cross(view.up, view.towards);
        view.target = TripleDouble(at(17), at(27), at(37)) + at(12) * turnedRight + at(22) * view.up;
        return view;
    }

    std::string m_name;
    std::vector<DxfRecord> m_records;
    std::map<std::uint64_t, const DxfRecord*> m_definitions;
    DrawingScene m_scene;
};

} // namespace

DrawingScene readScene(const fs::path& drawing) {
    return SceneReader(drawing).read();
}

} // namespace rasterplan_tool
