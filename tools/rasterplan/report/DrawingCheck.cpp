#include "report/DrawingCheck.h"

#include "reader/DxfPointers.h"
#include "report/PixelTolerance.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <tuple>
#include <utility>

namespace rasterplan_tool {
namespace {

constexpr std::array<std::string_view, 3> imageClasses = {"IMAGE", "IMAGEDEF", "IMAGEDEF_REACTOR"};

// Bits of the code 70 of an IMAGE, and of a LAYER.
constexpr int shown = 1;
constexpr int shownObliquely = 2;
constexpr int frozen = 1;

struct Direction {
    double x;
    double y;
    double z;
};

Direction cross(const Direction& a, const Direction& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

bool isZero(const Direction& d) {
    return d.x == 0.0 && d.y == 0.0 && d.z == 0.0;
}

bool isAlongZ(const Direction& d) {
    constexpr double tolerance = 1e-9;
    return std::hypot(d.x, d.y, 0.0) <= tolerance * std::abs(d.z);
}

std::optional<Direction> direction(const DxfRecord& record, int code) {
    const std::optional<double> x = record.number(code);
    const std::optional<double> y = record.number(code + 10);
    const std::optional<double> z = record.value(code + 20).empty() ? 0.0 : record.number(code + 20);
    if (!x || !y || !z)
        return std::nullopt;
    return Direction{*x, *y, *z};
}

// Names in a drawing do not differ by case alone.
std::string lower(std::string_view text) {
    std::string result(trimmed(text));
    std::transform(result.begin(), result.end(), result.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return result;
}

std::string inQuotes(std::string_view text) {
    return '"' + std::string(text) + '"';
}

std::string named(const DxfRecord& record) {
    const std::string handle = record.handle();
    return record.type + (handle.empty() ? "" : ' ' + handle);
}

std::string imagesText(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " image" : " images");
}

// A flag word, bit by bit; nothing where the record does not say.
std::optional<int> flags(const DxfRecord& record, int code) {
    const std::optional<double> number = record.number(code);
    if (!number || *number < 0.0 || *number > 65535.0)
        return std::nullopt;
    return static_cast<int>(*number);
}

bool isSpace(std::string_view block) {
    const std::string name = lower(block);
    return name.starts_with("*model_space") || name.starts_with("*paper_space") ||
           name.starts_with("$model_space") || name.starts_with("$paper_space");
}

class Check {
public:
    explicit Check(const DxfDrawing& drawing)
        : m_faults(drawing.faults)
        , m_records(drawing.wholeRecords())
        , m_isWhole(drawing.isWhole())
        , m_lineBehind(m_isWhole || drawing.records.empty() ? std::numeric_limits<std::size_t>::max()
                                                            : drawing.records.back().line)
        , m_handles(m_records)
        , m_images(all("IMAGE")) {}

    std::vector<Finding> findings() {
        checkText();
        checkHandles();
        if (m_images.empty())
            return std::move(m_findings);
        checkDictionary();
        checkClasses();
        checkLayers();
        checkBlocks();
        const Direction view = viewDirection();
        for (const DxfRecord* image : m_images) {
            checkRing(*image);
            checkClipBoundary(*image);
            checkDisplay(*image, view);
            checkExtent(*image);
        }
        return std::move(m_findings);
    }

private:
    void add(FindingKind kind, const DxfRecord& record, std::string text) {
        m_findings.push_back({kind, record.type, record.handle(), record.line, std::move(text)});
    }

    // For what belongs to no record.
    void add(FindingKind kind, std::size_t line, std::string text) {
        m_findings.push_back({kind, {}, {}, line, std::move(text)});
    }

    std::vector<const DxfRecord*> all(std::string_view type) const {
        std::vector<const DxfRecord*> found;
        for (const DxfRecord& record : m_records)
            if (record.type == type)
                found.push_back(&record);
        return found;
    }

    void checkText() {
        bool isMixedUp = false;
        for (const DxfFault& fault : m_faults) {
            if (fault.kind == DxfFaultKind::NoCode) {
                add(FindingKind::Damaged, fault.line,
                    fault.text +
                        "; a line is missing or too many before it, such as a line break inside of a "
                        "text; write the drawing anew");
            } else if (fault.kind == DxfFaultKind::CutShort) {
                add(FindingKind::CutShort, fault.line,
                    fault.text +
                        ", so the drawing is cut short and programs refuse it; write or copy it anew");
            } else if (fault.kind == DxfFaultKind::Misplaced && fault.line < m_lineBehind &&
                       !std::exchange(isMixedUp, true)) {
                add(FindingKind::Damaged, fault.line,
                    fault.text + ", so programs refuse the drawing; write it anew");
            }
        }
    }

    void checkHandles() {
        for (const DxfRecord* record : m_handles.repeated()) {
            const DxfRecord& first = *m_handles.find(record->handle());
            add(FindingKind::SharedHandle, *record,
                "the " + first.type + " of line " + std::to_string(first.line) +
                    " has the same handle, so what names it may lead to the wrong one; give one of them a "
                    "handle of its own");
        }
    }

    void checkDictionary() {
        if (!m_isWhole)
            return;
        const auto root = std::find_if(m_records.begin(), m_records.end(), [](const DxfRecord& r) {
            return r.section == "OBJECTS" && r.type == "DICTIONARY";
        });
        if (root == m_records.end()) {
            add(FindingKind::NoImageDictionary, m_records.back().line,
                "the section OBJECTS is missing or has no root dictionary, which should lead to the image "
                "dictionary and so to the images' definitions; write the drawing with a program that knows "
                "images");
            return;
        }
        for (const auto& [name, handle] : entriesOf(*root)) {
            if (name == "ACAD_IMAGE_DICT") {
                if (const DxfRecord* const images = m_handles.find(handle, "DICTIONARY")) {
                    checkEntries(*images);
                } else {
                    add(FindingKind::NoImageDictionary, *root,
                        "its entry ACAD_IMAGE_DICT names the handle " + inQuotes(handle) +
                            ", which no DICTIONARY has; name the image dictionary there");
                }
                return;
            }
        }
        add(FindingKind::NoImageDictionary, *root,
            "the root dictionary has no entry ACAD_IMAGE_DICT, so programs drop the images' definitions; add "
            "the entry and the dictionary that lists the definitions");
    }

    void checkEntries(const DxfRecord& dictionary) {
        std::set<const DxfRecord*> listed;
        for (const auto& [name, handle] : entriesOf(dictionary))
            listed.insert(m_handles.find(handle));
        std::set<const DxfRecord*> used;
        for (const DxfRecord* image : m_images)
            if (const DxfRecord* const definition = m_handles.find(image->value(340), "IMAGEDEF"))
                used.insert(definition);
        for (const DxfRecord* definition : used) {
            if (!listed.contains(definition)) {
                add(FindingKind::NoImageDictionary, *definition,
                    "the image dictionary (" + named(dictionary) +
                        ") has no entry for this definition, so programs drop it; add one");
            }
        }
    }

    // Many writers leave all counts at 0, and programs show their images all the same. Who counts the others
    // means it.
    void checkClasses() {
        const std::vector<const DxfRecord*> classes = all("CLASS");
        if (std::none_of(classes.begin(), classes.end(),
                         [](const DxfRecord* record) { return record->number(91).value_or(0.0) > 0.0; }))
            return;
        for (const DxfRecord* record : classes) {
            const std::string name(trimmed(record->value(1)));
            const bool isOfImages =
                std::find(imageClasses.begin(), imageClasses.end(), name) != imageClasses.end();
            const std::size_t count = isOfImages ? all(name).size() : 0;
            if (count > 0 && record->number(91) == 0.0) {
                add(FindingKind::ClassCount, *record,
                    "the class " + name + " counts 0 records where the drawing has " + std::to_string(count) +
                        ", so programs may pass over them; set its code 91 to " + std::to_string(count));
            }
        }
    }

    void checkRing(const DxfRecord& image) {
        const DxfRecord* const definition = target(image, 340, "IMAGEDEF", "definition");
        const DxfRecord* const reactor = target(image, 360, "IMAGEDEF_REACTOR", "reactor");
        if (reactor == nullptr)
            return;
        const std::vector<std::string> images = reactor->values(330); // the last; the owner comes before
        if (images.empty() || !isSameHandle(images.back(), image.handle())) {
            add(FindingKind::BrokenRing, *reactor,
                "the reactor of " + named(image) + " does not name it in code 330; write \"" +
                    image.handle() + "\" there");
        }
        if (definition == nullptr)
            return;
        const std::vector<std::string> reactors = reactorsOf(*definition);
        if (std::none_of(reactors.begin(), reactors.end(), [&](const std::string& handle) {
                return isSameHandle(handle, reactor->handle());
            })) {
            add(FindingKind::BrokenRing, *definition,
                "its reactors do not name " + named(*reactor) + ", the reactor of " + named(image) +
                    "; add \"" + reactor->handle() + "\" to its group {ACAD_REACTORS");
        }
    }

    // The record to which a pointer of an image leads.
    const DxfRecord* target(const DxfRecord& image, int code, std::string_view type, std::string_view role) {
        const std::string& handle = image.value(code);
        const DxfRecord* const found = m_handles.find(handle, type);
        if (found != nullptr || (!m_isWhole && m_handles.find(handle) == nullptr))
            return found;
        const std::string where = "code " + std::to_string(code);
        add(FindingKind::BrokenRing, image,
            handle.empty() ? "the image names no " + std::string(role) + "; write the handle of its " +
                                 std::string(type) + " in " + where
                           : "its " + where + " names the handle " + inQuotes(handle) + ", which no " +
                                 std::string(type) + " has; name its " + std::string(role) + " there");
        return nullptr;
    }

    // Writers that clip nothing may leave the boundary out.
    void checkClipBoundary(const DxfRecord& image) {
        std::vector<std::pair<double, double>> corners;
        const std::vector<std::string> x = image.values(14);
        const std::vector<std::string> y = image.values(24);
        for (std::size_t i = 0; i < std::min(x.size(), y.size()); ++i)
            corners.emplace_back(realNumber(x[i]).value_or(0.0), realNumber(y[i]).value_or(0.0));
        if (corners.empty() && image.number(91) != 0.0)
            return;
        const auto isEmptyAlong = [&corners](double std::pair<double, double>::*axis) {
            return std::all_of(corners.begin(), corners.end(), [&](const std::pair<double, double>& corner) {
                return corner.*axis == corners.front().*axis;
            });
        };
        if (isEmptyAlong(&std::pair<double, double>::first) ||
            isEmptyAlong(&std::pair<double, double>::second)) {
            add(FindingKind::EmptyClipBoundary, image,
                "its clip boundary (codes 14 and 24) encloses nothing, so nothing of the picture is left; "
                "write the corners -0.5, -0.5 and width - 0.5, height - 0.5 in pixels");
        }
    }

    void checkDisplay(const DxfRecord& image, const Direction& view) {
        if (image.number(60) == 1.0) {
            add(FindingKind::SwitchedOff, image,
                "the image is invisible; set its code 60 to 0 or leave it out");
        }
        const std::optional<int> display = flags(image, 70);
        if (!display)
            return;
        if ((*display & shown) == 0) {
            add(FindingKind::SwitchedOff, image,
                "bit 1 of its code 70 is not set, so the picture is not shown; set code 70 to " +
                    std::to_string(*display | shown | shownObliquely));
        } else if ((*display & shownObliquely) == 0 && isSeenObliquely(image, view)) {
            add(FindingKind::HiddenObliquely, image,
                "bit 2 of its code 70 is not set, so the picture is not shown where it is seen obliquely; "
                "set "
                "code 70 to " +
                    std::to_string(*display | shownObliquely));
        }
    }

    // A picture that lies flat under a view from above, as in every plan, is never seen obliquely.
    static bool isSeenObliquely(const DxfRecord& image, const Direction& view) {
        const std::optional<Direction> u = direction(image, 11);
        const std::optional<Direction> v = direction(image, 12);
        return u && v && !(isAlongZ(cross(*u, *v)) && (isAlongZ(view) || image.number(67) == 1.0));
    }

    Direction viewDirection() const {
        for (const DxfRecord* port : all("VPORT"))
            if (lower(port->value(2)) == "*active")
                return direction(*port, 16).value_or(Direction{0.0, 0.0, 1.0});
        return {0.0, 0.0, 1.0};
    }

    void checkExtent(const DxfRecord& image) {
        for (const int code : {10, 20, 30, 11, 21, 31, 12, 22, 32, 13, 23}) {
            if (!image.value(code).empty() && !image.number(code)) {
                add(FindingKind::NoExtent, image,
                    "its code " + std::to_string(code) + " holds " + inQuotes(image.value(code)) +
                        ", which is no number; write the drawing anew with right pixels per unit");
                return;
            }
        }
        const std::optional<Direction> u = direction(image, 11);
        const std::optional<Direction> v = direction(image, 12);
        if (u && v && isZero(cross(*u, *v))) {
            add(FindingKind::NoExtent, image,
                "its pixels have no area, because the directions of codes 11 and 12 are zero or parallel; "
                "write the size and direction of a pixel there");
        }
        if (image.number(13).value_or(1.0) <= 0.0 || image.number(23).value_or(1.0) <= 0.0) {
            add(FindingKind::NoExtent, image,
                "it has no pixels; write the picture's width and height in pixels in codes 13 and 23");
        }
        const DxfRecord* const definition = m_handles.find(image.value(340), "IMAGEDEF");
        if (definition != nullptr && (differ(image.number(13), definition->number(10)) ||
                                      differ(image.number(23), definition->number(20)))) {
            add(FindingKind::PixelCount, image,
                "it has " + image.value(13) + " x " + image.value(23) + " pixels, but its definition (" +
                    named(*definition) + ") " + definition->value(10) + " x " + definition->value(20) +
                    "; write the picture's own count in both");
        }
    }

    static bool differ(std::optional<double> a, std::optional<double> b) {
        return a && b && std::abs(*a - *b) > pixelTolerance;
    }

    void checkLayers() {
        std::map<std::string, std::size_t> imagesOnLayer;
        for (const DxfRecord* image : m_images)
            if (image->section != "BLOCKS" || lower(image->value(8)) != "0") // that of the insertion counts
                ++imagesOnLayer[lower(image->value(8))];
        for (const DxfRecord* layer : all("LAYER")) {
            const auto found = imagesOnLayer.find(lower(layer->value(2)));
            if (found == imagesOnLayer.end())
                continue;
            const bool isFrozen = (flags(*layer, 70).value_or(0) & frozen) != 0;
            if (isFrozen || layer->number(62).value_or(0.0) < 0.0) {
                add(FindingKind::HiddenLayer, *layer,
                    "the layer " + inQuotes(layer->value(2)) + " is " + (isFrozen ? "frozen" : "off") +
                        ", and " + imagesText(found->second) + " on it; " +
                        (isFrozen ? "thaw it" : "turn it on"));
            }
        }
    }

    void checkBlocks() {
        if (!m_isWhole)
            return;
        std::map<const DxfRecord*, std::size_t> imagesInBlock;
        const DxfRecord* block = nullptr;
        for (const DxfRecord& record : m_records)
            if (record.type == "BLOCK" || record.type == "ENDBLK" || record.section != "BLOCKS")
                block = record.type == "BLOCK" && !isSpace(record.value(2)) ? &record : nullptr;
            else if (record.type == "IMAGE" && block != nullptr)
                ++imagesInBlock[block];
        if (imagesInBlock.empty())
            return;
        const std::set<std::string> inserted = insertedBlocks();
        for (const auto& [found, count] : imagesInBlock) {
            if (!inserted.contains(lower(found->value(2)))) {
                add(FindingKind::NotInserted, *found,
                    "the block " + inQuotes(found->value(2)) + " holds " + imagesText(count) +
                        " and is inserted nowhere; insert it, or move its images to the model space");
            }
        }
    }

    // The names of all blocks that anything names or points at: insertions, dimensions, tables, leaders, and
    // the variants of a dynamic block.
    std::set<std::string> insertedBlocks() const {
        std::set<std::string> inserted;
        for (const DxfRecord& record : m_records) {
            if ((record.section == "ENTITIES" || record.section == "BLOCKS") && record.type != "BLOCK")
                inserted.insert(lower(record.value(2)));
            for (const DxfGroup& group : record.groups)
                if ((group.code >= 340 && group.code <= 349) || group.code == 1005)
                    if (const DxfRecord* const pointed = m_handles.find(group.value, "BLOCK_RECORD"))
                        inserted.insert(lower(pointed->value(2)));
        }
        return inserted;
    }

    const std::vector<DxfFault>& m_faults;
    std::span<const DxfRecord> m_records;
    bool m_isWhole;
    std::size_t m_lineBehind; // the whole records
    DxfHandles m_handles;
    std::vector<const DxfRecord*> m_images;
    std::vector<Finding> m_findings;
};

} // namespace

std::string_view kindName(FindingKind kind) {
    switch (kind) {
    case FindingKind::NoImageDictionary:
        return "no-image-dictionary";
    case FindingKind::ClassCount:
        return "class-count";
    case FindingKind::BrokenRing:
        return "broken-ring";
    case FindingKind::EmptyClipBoundary:
        return "empty-clip-boundary";
    case FindingKind::SharedHandle:
        return "shared-handle";
    case FindingKind::HiddenObliquely:
        return "hidden-obliquely";
    case FindingKind::SwitchedOff:
        return "switched-off";
    case FindingKind::HiddenLayer:
        return "hidden-layer";
    case FindingKind::NotInserted:
        return "not-inserted";
    case FindingKind::NoExtent:
        return "no-extent";
    case FindingKind::NoFile:
        return "no-file";
    case FindingKind::FileMissing:
        return "file-missing";
    case FindingKind::UnreadableFile:
        return "unreadable-file";
    case FindingKind::PixelCount:
        return "pixel-count";
    case FindingKind::Damaged:
        return "damaged";
    case FindingKind::CutShort:
        break;
    }
    return "cut-short";
}

std::vector<Finding> checkRecords(const DxfDrawing& drawing) {
    std::vector<Finding> findings = Check(drawing).findings();
    sortByWeight(findings);
    return findings;
}

void sortByWeight(std::vector<Finding>& findings) {
    std::stable_sort(findings.begin(), findings.end(), [](const Finding& a, const Finding& b) {
        return std::tie(a.kind, a.line) < std::tie(b.kind, b.line);
    });
}

} // namespace rasterplan_tool
