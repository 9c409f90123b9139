#include "support/StructureWalk.h"

#include "support/StrictDxf.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <set>
#include <stdexcept>

namespace rasterplan::test {
namespace {

constexpr const char* rootDictionary = "9";
constexpr const char* imageDictionary = "5A";

double number(const std::string& text) {
    double value = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size())
        throw std::runtime_error("no number: \"" + text + '"');
    return value;
}

// The handles in the record's group of reactors.
std::vector<std::string> reactors(const DxfRecord& record) {
    std::vector<std::string> found;
    bool inside = false;
    for (const DxfGroup& group : record.groups)
        if (group.code == 102)
            inside = group.value == "{ACAD_REACTORS";
        else if (inside && group.code == 330)
            found.push_back(group.value);
    return found;
}

// The first 330 that stands in no group.
std::string owner(const DxfRecord& record) {
    bool inside = false;
    for (const DxfGroup& group : record.groups)
        if (group.code == 102)
            inside = group.value != "}";
        else if (!inside && group.code == 330)
            return group.value;
    return {};
}

class Walk {
public:
    Walk(std::string_view drawing, const StructureCounts& counts)
        : m_drawing(drawing)
        , m_counts(counts) {}

    std::vector<std::string> findings() {
        try {
            checkLineEnds();
            const std::vector<DxfGroup> groups = strictGroups(m_drawing);
            checkValues(groups);
            m_records = strictRecords(groups);
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
        for (const DxfRecord& record : m_records)
            if (record.type == type)
                found.push_back(&record);
        return found;
    }

    // The record with this handle and type. Throws when there is none.
    const DxfRecord& named(const std::string& handle, std::string_view type) const {
        const auto found = m_byHandle.find(handle);
        if (found == m_byHandle.end() || found->second->type != type)
            throw std::runtime_error("no " + std::string(type) + " has the handle \"" + handle + '"');
        return *found->second;
    }

    void checkLineEnds() {
        for (std::size_t i = 0; i < m_drawing.size(); ++i) {
            const bool second = m_drawing[i] == '\n' && i > 0 && m_drawing[i - 1] == '\r';
            const bool first = m_drawing[i] == '\r' && i + 1 < m_drawing.size() && m_drawing[i + 1] == '\n';
            if (m_drawing[i] == '\n')
                check(second, "byte " + std::to_string(i) + ": LF without CR");
            if (m_drawing[i] == '\r')
                check(first, "byte " + std::to_string(i) + ": CR without LF");
        }
        check(m_drawing.ends_with("\r\n"), "the last line has no end");
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
        check(!m_records.empty() && m_records.back().type == "EOF", "no EOF at the end");
        check(all("EOF").size() == 1, "not one EOF");
    }

    void checkHandles() {
        static const std::set<std::string> without = {"SECTION", "ENDSEC", "CLASS", "ENDTAB", "EOF"};
        unsigned long highest = 0;
        for (const DxfRecord& record : m_records) {
            if (without.contains(record.type))
                continue;
            const std::string handle = record.handle();
            check(!handle.empty() && handle != "0", record, "no handle");
            if (!handle.empty()) {
                check(m_byHandle.emplace(handle, &record).second, record, "second record with " + handle);
                highest = std::max(highest, strictHandle(handle));
            }
        }
        for (const DxfRecord& record : m_records)
            checkPointers(record);

        for (const DxfVariable& variable : headerVariables(m_records)) {
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
                check(m_byHandle.contains(group.value), record, "no record has the handle " + group.value);
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
        const auto objects = std::find_if(m_records.begin(), m_records.end(), [](const DxfRecord& r) {
            return r.section == "OBJECTS" && r.type != "SECTION";
        });
        check(objects != m_records.end() && objects->type == "DICTIONARY" &&
                  objects->handle() == rootDictionary,
              "the root dictionary is not the first object");
        const DxfRecord& root = named(rootDictionary, "DICTIONARY");
        check(owner(root) == "0", root, "the root dictionary has an owner");
        check(entries(root).contains({"ACAD_IMAGE_DICT", imageDictionary}), root,
              "no entry ACAD_IMAGE_DICT for the image dictionary");

        const DxfRecord& images = named(imageDictionary, "DICTIONARY");
        check(owner(images) == rootDictionary, images, "not owned by the root dictionary");
        check(reactors(images) == std::vector<std::string>{rootDictionary}, images, "wrong reactors");
        check(images.values(3).size() == m_counts.images, images,
              std::to_string(images.values(3).size()) + " entries");
        for (const auto& [name, handle] : entries(images)) {
            named(handle, "IMAGEDEF");
            check(m_definitions.insert(handle).second, images, "two entries for " + handle);
        }
    }

    static std::set<std::pair<std::string, std::string>> entries(const DxfRecord& dictionary) {
        std::set<std::pair<std::string, std::string>> found;
        for (std::size_t i = 0; i + 1 < dictionary.groups.size(); ++i)
            if (dictionary.groups[i].code == 3 && dictionary.groups[i + 1].code == 350)
                found.emplace(dictionary.groups[i].value, dictionary.groups[i + 1].value);
        return found;
    }

    void checkImage(const DxfRecord& image) {
        const DxfRecord& definition = named(image.value(340), "IMAGEDEF");
        const DxfRecord& reactor = named(image.value(360), "IMAGEDEF_REACTOR");
        check(m_definitions.erase(definition.handle()) == 1, image,
              "the image dictionary does not lead to its definition, or another image has it too");
        check(owner(definition) == imageDictionary, definition, "not owned by the image dictionary");
        check(reactors(definition) == std::vector<std::string>{imageDictionary, reactor.handle()}, definition,
              "its reactors are not the image dictionary and the image's reactor");
        check(reactor.values(330) == std::vector<std::string>{image.handle(), image.handle()}, reactor,
              "does not name its image twice");
        const DxfRecord& space = named(owner(image), "BLOCK_RECORD");
        check(space.value(2) == "*Model_Space", image, "not owned by the model space");

        const double width = number(image.value(13));
        const double height = number(image.value(23));
        check(width > 0.0 && height > 0.0, image, "no pixels");
        check(number(definition.value(10)) == width && number(definition.value(20)) == height, definition,
              "other pixel counts than its image");
        check(number(definition.value(11)) > 0.0, definition, "no pixel size");
        checkClipBoundary(image, width, height);
    }

    void checkClipBoundary(const DxfRecord& image, double width, double height) {
        check(image.value(71) == "1" && image.value(91) == "2", image,
              "the clip boundary is not a rectangle of two corners");
        const std::vector<std::string> x = image.values(14);
        const std::vector<std::string> y = image.values(24);
        check(x.size() == 2 && y.size() == 2 && number(x[0]) == -0.5 && number(y[0]) == -0.5 &&
                  number(x[1]) == width - 0.5 && number(y[1]) == height - 0.5,
              image, "the clip boundary is not the whole picture");
    }

    std::string_view m_drawing;
    StructureCounts m_counts;
    std::vector<DxfRecord> m_records;
    std::map<std::string, const DxfRecord*> m_byHandle;
    std::set<std::string> m_definitions; // Named by the image dictionary and not yet met at an image.
    std::vector<std::string> m_findings;
};

} // namespace

std::vector<std::string> structureFindings(std::string_view drawing, const StructureCounts& counts) {
    return Walk(drawing, counts).findings();
}

} // namespace rasterplan::test
