#include "dxf/DxfSectionRegistry.h"

#include "base/Utf8.h"
#include "dxf/DxfSectionClass.h"
#include "dxf/DxfSectionHeader.h"
#include "dxf/DxfSectionObjects.h"
#include "template/DxfError.h"

#include <algorithm>

namespace rasterplan {

void DxfSectionRegistry::addDocument(const std::optional<ReferencePlane>& plane) {
    populateSections(buildSections(plane));
}

Document DxfSectionRegistry::buildSections(const std::optional<ReferencePlane>& plane) const {
    const std::int32_t images = m_drawing.images.count();
    Document document{plane, images, images, images, m_handles.last()};
    if (plane)
        document.images = static_cast<std::int32_t>(
            std::count_if(m_drawing.images.begin(), m_drawing.images.end(),
                          [&](const DxfImageObj& image) { return Flattening::shows(image, *plane); }));
    const std::int32_t entries = m_documents.empty() ? document.images : dictionaryEntries();
    document.filledImages = std::min(document.images, entries + 1);
    return document;
}

void DxfSectionRegistry::populateSections(const Document& document) {
    HeaderExtents extents = m_extents;
    DxfViewPortObj flatView;
    HandleCounter handles = document.imageHandles();
    std::int32_t number = 0;
    DocumentView(document, m_drawing)
        .forEachImage(document.images, [&](const DxfImageObj& image, const ImageHandles&) {
            if (document.plane)
                flatView.addImageFlat(image.getImageParam());
            if (++number <= document.filledImages) {
                DxfImageObj::assignHandles(handles);
                extents.updateHeaderFromImage(image.getImageParam());
            }
        });

    m_documents.push_back(document);
    m_handles = handles;
    m_extents = extents;
    // The message names the definition: it is the record that has no name in the dictionary.
    if (document.images > dictionaryEntries())
        throw DxfError("Failure while setting Map:" +
                       makeInstanceKey(TopLevelKey::ObjectImageDef, document.filledImages));
    m_view.emplace((document.plane ? flatView : m_drawing.viewport).createSection());
    m_handleSeed = m_handles.nextHandle();
}

std::int32_t DxfSectionRegistry::dictionaryEntries() const noexcept {
    return m_documents.front().images;
}

std::int32_t DxfSectionRegistry::filledDefinitions() const noexcept {
    std::int32_t filled = 0;
    for (const Document& document : m_documents)
        filled = std::max(filled, document.filledImages);
    return filled;
}

std::int32_t DxfSectionRegistry::definitions() const noexcept {
    std::int32_t count = 0;
    for (const Document& document : m_documents)
        count += document.images;
    return count;
}

template <typename Visit>
void DxfSectionRegistry::forEachFilledImage(std::int32_t last, const Visit& visit) const {
    std::int32_t visited = 0;
    for (auto document = m_documents.rbegin(); document != m_documents.rend(); ++document) {
        const std::int32_t until = std::min(document->filledImages, last);
        if (until <= visited)
            continue;
        const DocumentView view(*document, m_drawing);
        view.forEachAddedImage(
            visited + 1, until,
            [&](const DxfImageObj& image, const ImageHandles& handles) { visit(view, image, handles); });
        visited = until;
    }
}

void DxfSectionRegistry::renderPlaceholder(TopLevelKey key, OutputBuffer& out) const {
    using enum TopLevelKey;
    switch (key) {
    case HeaderExtMin:
        return DxfHeaderSection_EXTMIN(m_extents.min()).render(out);
    case HeaderExtMax:
        return DxfHeaderSection_EXTMAX(m_extents.max()).render(out);
    case HeaderHandSeed:
        return DxfHeaderSection_HANDSEED(m_handleSeed).render(out);
    case HeaderInsUnits:
        return DxfHeaderSection_INSUNITS(m_extents.unit()).render(out);
    case ClassImageDef:
        return DxfSectionClass_IMAGEDEF(dictionaryEntries()).render(out);
    case ClassImageDefReactor:
        return DxfSectionClass_IMAGEDEF_REACTOR(dictionaryEntries()).render(out);
    case ClassImage:
        return DxfSectionClass_IMAGE(dictionaryEntries()).render(out);
    case TableVPort:
        return m_view->render(out);
    case ObjectDictionary:
        return renderDictionary(out);
    case ObjectImageDefReactor:
        return renderReactors(out);
    case ObjectImageDef:
        return renderDefinitions(out);
    case EntityLine:
        return renderLines(out);
    case EntityImage:
        return renderImages(out);
    }
}

// In the next two a text that cannot be written is found before anything of the placeholder is written.

void DxfSectionRegistry::renderDictionary(OutputBuffer& out) const {
    const auto forEachEntry = [&](const auto& visit) {
        forEachFilledImage(dictionaryEntries(), [&](const auto&, const auto& image, const auto& handles) {
            visit(DxfSectionObjects_DICTIONARYEntry(image.getImageParam(), handles));
        });
    };
    forEachEntry([](const auto& entry) { ZelkBase::requireUtf8(entry.name); });
    DxfSectionObjects_DICTIONARY().render(out);
    forEachEntry([&](const auto& entry) { entry.render(out); });
}

void DxfSectionRegistry::renderDefinitions(OutputBuffer& out) const {
    using Definition = DxfSectionObjects_IMAGEDEF;
    forEachFilledImage(filledDefinitions(), [](const auto&, const auto& image, const auto& handles) {
        ZelkBase::requireUtf8(Definition(image.getImageParam(), handles).path);
    });
    forEachFilledImage(filledDefinitions(), [&](const auto& view, const auto& image, const auto& handles) {
        view.place(image,
                   [&](const auto& placed) { Definition(placed.getImageParam(), handles).render(out); });
    });
    for (std::int32_t number = filledDefinitions(); number < definitions(); ++number)
        Definition::renderUnfilled(out);
}

void DxfSectionRegistry::renderReactors(OutputBuffer& out) const {
    forEachFilledImage(filledDefinitions(), [&](const auto&, const auto&, const auto& handles) {
        DxfSectionObjects_IMAGEDEFREACTOR(handles).render(out);
    });
    for (std::int32_t number = filledDefinitions(); number < definitions(); ++number)
        DxfSectionObjects_IMAGEDEFREACTOR::renderUnfilled(out);
}

void DxfSectionRegistry::renderLines(OutputBuffer& out) const {
    for (const Document& document : m_documents)
        DocumentView(document, m_drawing).forEachLine([&](const DxfLineObj& line, Handle handle) {
            line.createSection(handle).render(out);
        });
}

void DxfSectionRegistry::renderImages(OutputBuffer& out) const {
    for (const Document& document : m_documents) {
        DocumentView(document, m_drawing)
            .forEachImage(document.filledImages, [&](const DxfImageObj& image, const ImageHandles& handles) {
                image.createSection(handles).render(out);
            });
        for (std::int32_t unfilled = document.filledImages; unfilled < document.images; ++unfilled)
            DxfSectionImageEntity::renderUnfilled(out);
    }
}

} // namespace rasterplan
