#include "support/StructureWalk.h"

#include "reader/DxfPointers.h"
#include "report/DrawingCheck.h"
#include "support/StrictDxf.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <set>
#include <stdexcept>

namespace rasterplan::test {
namespace {

using rasterplan_tool::DxfDrawing;
using rasterplan_tool::DxfHandles;
using rasterplan_tool::entriesOf;
using rasterplan_tool::ownerOf;
using rasterplan_tool::reactorsOf;

constexpr const char* rootDictionary = "9";
constexpr const char* imageDictionary = "5A";

double numberOf(const std::string& text) {
    double value = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size())
        throw std::runtime_error("no number: \"" + text + '"');
    return value;
}

class Walk {
public:
    Walk(std::string_view drawing, const StructureCounts& counts)
        : m_text(drawing)
        , m_counts(counts) {}

    std::vector<std::string> findings() {
        try {
            checkLineEnds();
            const std::vector<DxfGroup> groups = strictGroups(m_text);
            checkValues(groups);
            m_drawing.records = strictRecords(groups);
            m_handles.emplace(m_drawing.records);
            for (const rasterplan_tool::Finding& finding : checkRecords(m_drawing))
                check(false,
                      "line " + std::to_string(finding.line) + ", " + finding.record + ": " + finding.text);
            checkFrame();
            checkHandles();
            checkCounts();
            checkClasses();
            checkDictionaries();
            for (const DxfRecord* image : all("IMAGE"))
                checkImage(*image);
        } catch (const std::runtime_error& e) {
            m_findings.emplace_back(e.what());
        }
        return m_findings;
    }

private:
    void check(bool holds, const std::string& otherwise) {
        if (!holds)
            m_findings.push_back(otherwise);
    }

    void check(bool holds, const DxfRecord& record, const std::string& otherwise) {
        check(holds, "line " + std::to_string(record.line) + ", " + record.type + ": " + otherwise);
    }

    std::vector<const DxfRecord*> all(std::string_view type) const {
        std::vector<const DxfRecord*> found;
        for (const DxfRecord& record : m_drawing.records)
            if (record.type == type)
                found.push_back(&record);
        return found;
    }

    // The record with this handle and type. Throws when there is none.
    const DxfRecord& named(const std::string& handle, std::string_view type) const {
        const DxfRecord* const found = m_handles->find(handle, type);
        if (found == nullptr)
            throw std::runtime_error("no " + std::string(type) + " has the handle \"" + handle + '"');
        return *found;
    }

    void checkLineEnds() {
        for (std::size_t i = 0; i < m_text.size(); ++i) {
            const bool second = m_text[i] == '\n' && i > 0 && m_text[i - 1] == '\r';
            const bool first = m_text[i] == '\r' && i + 1 < m_text.size() && m_text[i + 1] == '\n';
            if (m_text[i] == '\n')
                check(second, "byte " + std::to_string(i) + ": LF without CR");
            if (m_text[i] == '\r')
                check(first, "byte " + std::to_string(i) + ": CR without LF");
        }
        check(m_text.ends_with("\r\n"), "the last line has no end");
    }

    void checkValues(const std::vector<DxfGroup>& groups) {
        for (const DxfGroup& group : groups) {
            const bool viewMode = group.code == 71 && group.value == "0.0"; // the viewport's, fixed
            check(viewMode || valueFitsCode(group), "line " + std::to_string(group.line) + ": \"" +
                                                        group.value + "\" does not fit code " +
                                                        std::to_string(group.code));
        }
    }

    void checkFrame() {
        std::vector<std::string> sections;
        for (const DxfRecord* record : all("SECTION"))
            sections.push_back(record->section);
        check(sections ==
                  std::vector<std::string>{"HEADER", "CLASSES", "TABLES", "BLOCKS", "ENTITIES", "OBJECTS"},
              "the sections are others or in another order");
    }

    void checkHandles() {
        static const std::set<std::string> without = {"SECTION", "ENDSEC", "CLASS", "ENDTAB", "EOF"};
        unsigned long highest = 0;
        for (const DxfRecord& record : m_drawing.records) {
            if (without.contains(record.type))
                continue;
            const std::string handle = record.handle();
            check(!handle.empty() && handle != "0", record, "no handle");
            if (!handle.empty())
                highest = std::max(highest, strictHandle(handle));
        }
        for (const DxfRecord& record : m_drawing.records)
            checkPointers(record);

        for (const DxfVariable& variable : headerVariables(m_drawing.records)) {
            if (variable.name == "$HANDSEED" && !variable.groups.empty()) {
                check(highest < strictHandle(variable.groups.front().value),
                      "a handle is not below $HANDSEED");
                return;
            }
        }
        check(false, "no $HANDSEED");
    }

    void checkPointers(const DxfRecord& record) {
        const bool top = record.type == "TABLE" || record.handle() == rootDictionary;
        for (const DxfGroup& group : record.groups)
            if (isPointerCode(group.code) && !(top && group.code == 330 && group.value == "0"))
                check(m_handles->find(group.value) != nullptr, record,
                      "no record has the handle " + group.value);
    }

    void checkCounts() {
        const auto checkCount = [&](const char* type, std::size_t expected) {
            const std::size_t found = all(type).size();
            check(found == expected,
                  std::to_string(found) + " records " + type + " instead of " + std::to_string(expected));
        };
        checkCount("IMAGE", m_counts.images);
        checkCount("IMAGEDEF", m_counts.images);
        checkCount("IMAGEDEF_REACTOR", m_counts.images);
        checkCount("LINE", m_counts.lines);
        checkCount("VPORT", 1);
    }

    void checkClasses() {
        std::set<std::string> open = {"IMAGE", "IMAGEDEF", "IMAGEDEF_REACTOR"};
        for (const DxfRecord* record : all("CLASS")) {
            const std::string& name = record->value(1);
            if (open.erase(name) == 0)
                continue;
            check(record->value(91) == std::to_string(m_counts.images), *record,
                  "counts " + record->value(91) + ' ' + name);
            check((record->value(281) == "1") == (name == "IMAGE"), *record, "wrong entity flag");
        }
        for (const std::string& name : open)
            check(false, "no class " + name);
    }

    void checkDictionaries() {
        const auto objects =
            std::find_if(m_drawing.records.begin(), m_drawing.records.end(),
                         [](const DxfRecord& r) { return r.section == "OBJECTS" && r.type != "SECTION"; });
        check(objects != m_drawing.records.end() && objects->type == "DICTIONARY" &&
                  objects->handle() == rootDictionary,
              "the root dictionary is not the first object");
        const DxfRecord& root = named(rootDictionary, "DICTIONARY");
        check(ownerOf(root) == "0", root, "the root dictionary has an owner");
        const DxfRecord& images = named(imageDictionary, "DICTIONARY");
        check(ownerOf(images) == rootDictionary, images, "not owned by the root dictionary");
        check(reactorsOf(images) == std::vector<std::string>{rootDictionary}, images, "wrong reactors");
        check(images.values(3).size() == m_counts.images, images,
              std::to_string(images.values(3).size()) + " entries");
        for (const auto& [name, handle] : entriesOf(images)) {
            named(handle, "IMAGEDEF");
            check(m_definitions.insert(handle).second, images, "two entries for " + handle);
        }
    }

    void checkImage(const DxfRecord& image) {
        const DxfRecord& definition = named(image.value(340), "IMAGEDEF");
        const DxfRecord& reactor = named(image.value(360), "IMAGEDEF_REACTOR");
        check(m_definitions.erase(definition.handle()) == 1, image,
              "the image dictionary does not lead to its definition, or another image has it too");
        check(ownerOf(definition) == imageDictionary, definition, "not owned by the image dictionary");
        check(reactorsOf(definition) == std::vector<std::string>{imageDictionary, reactor.handle()},
              definition, "its reactors are not the image dictionary and the image's reactor");
        check(reactor.values(330) == std::vector<std::string>{image.handle(), image.handle()}, reactor,
              "does not name its image twice");
        const DxfRecord& space = named(ownerOf(image), "BLOCK_RECORD");
        check(space.value(2) == "*Model_Space", image, "not owned by the model space");

        const double width = numberOf(image.value(13));
        const double height = numberOf(image.value(23));
        check(numberOf(definition.value(10)) == width && numberOf(definition.value(20)) == height, definition,
              "other pixel counts than its image");
        check(numberOf(definition.value(11)) > 0.0, definition, "no pixel size");
        checkClipBoundary(image, width, height);
    }

    void checkClipBoundary(const DxfRecord& image, double width, double height) {
        check(image.value(71) == "1" && image.value(91) == "2", image,
              "the clip boundary is not a rectangle of two corners");
        const std::vector<std::string> x = image.values(14);
        const std::vector<std::string> y = image.values(24);
        check(x.size() == 2 && y.size() == 2 && numberOf(x[0]) == -0.5 && numberOf(y[0]) == -0.5 &&
                  numberOf(x[1]) == width - 0.5 && numberOf(y[1]) == height - 0.5,
              image, "the clip boundary is not the whole picture");
    }

    std::string_view m_text;
    StructureCounts m_counts;
    DxfDrawing m_drawing;
    std::optional<DxfHandles> m_handles;
    std::set<std::string> m_definitions; // Named by the image dictionary and not yet met at an image.
    std::vector<std::string> m_findings;
};

} // namespace

std::vector<std::string> structureFindings(std::string_view drawing, const StructureCounts& counts) {
    return Walk(drawing, counts).findings();
}

} // namespace rasterplan::test
