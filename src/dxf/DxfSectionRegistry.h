#pragma once

#include "dxf/Document.h"
#include "dxf/Drawing.h"
#include "dxf/DxfSectionTable_VPORT.h"
#include "dxf/Flattening.h"
#include "dxf/Handles.h"
#include "dxf/HeaderExtents.h"
#include "template/OutputBuffer.h"
#include "template/TopLevelKey.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace rasterplan {

/// Numbers the sections of a drawing, hands out their handles and expands the template's placeholder lines.
///
/// Each write adds a document, and nothing is ever taken out: the second one continues numbers and handles,
/// and the placeholder lines then stand for the records of both. Of a definition, a reactor or a dictionary
/// entry there is one per image number, which tells of the last document that filled it; there are as many
/// definitions and reactors as there are entities, and those that no image fills keep their first values.
/// The dictionary has as many entries as the first document has images.
class DxfSectionRegistry {
public:
    /// `drawing` must outlive the registry.
    explicit DxfSectionRegistry(const Drawing& drawing) noexcept
        : m_drawing(drawing) {}

    /// Adds a document of all images in space, or flattened into a plane.
    ///
    /// Throws std::bad_alloc, and as Flattening does; there is no new document then. Throws DxfError when the
    /// dictionary lacks an entry for an image, and ErrorNR when the view cannot be inverted; the new document
    /// then has the values that it got until then.
    void addDocument(const std::optional<ReferencePlane>& plane);

    /// Appends the records that stand for a line of the template, in ascending number; nothing when there are
    /// none. At least one document must have been added, and its handle seed be known. Throws
    /// std::range_error for a path with a character beyond U+10FFFF; nothing is appended then.
    void renderPlaceholder(TopLevelKey key, OutputBuffer& out) const;

private:
    Document buildSections(const std::optional<ReferencePlane>& plane) const;
    void populateSections(const Document& document);

    /// As many as the first document has images.
    std::int32_t dictionaryEntries() const noexcept;

    /// Definitions, of which the first so many are filled; there are as many reactors.
    std::int32_t definitions() const noexcept;
    std::int32_t filledDefinitions() const noexcept;

    /// Visits image numbers from 1 to `last`, each in the document that filled it last: `visit(view, image,
    /// handles)`, with the image as the host added it.
    template <typename Visit>
    void forEachFilledImage(std::int32_t last, const Visit& visit) const;

    void renderDictionary(OutputBuffer& out) const;
    void renderDefinitions(OutputBuffer& out) const;
    void renderReactors(OutputBuffer& out) const;
    void renderLines(OutputBuffer& out) const;
    void renderImages(OutputBuffer& out) const;

    const Drawing& m_drawing;
    std::vector<Document> m_documents;
    HandleCounter m_handles{125}; // lower ones belong to the template's own records
    HeaderExtents m_extents;
    std::optional<DxfSectionTable_VPORT> m_view;
    Handle m_handleSeed{};
};

} // namespace rasterplan
