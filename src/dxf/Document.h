#pragma once

#include "dxf/Drawing.h"
#include "dxf/Flattening.h"
#include "dxf/Handles.h"

#include <cassert>
#include <cstdint>
#include <optional>

namespace rasterplan {

/// All that one write adds to a drawing: every numbered record follows from it and from the images, which
/// never change.
struct Document {
    std::optional<ReferencePlane> plane; ///< What it is flattened into; without one it lies in space.
    std::int32_t imagesInDrawing;        ///< How many the drawing had.
    std::int32_t images;                 ///< How many of them it shows.
    std::int32_t filledImages;           ///< Up to which number they have got their values.
    std::uint32_t lastHandleBefore;

    static constexpr std::int32_t linesPerImage = 6;

    /// The handles of its lines, and those of its images, which follow.
    HandleCounter lineHandles() const noexcept { return HandleCounter(lastHandleBefore); }
    HandleCounter imageHandles() const noexcept {
        return HandleCounter(lastHandleBefore + static_cast<std::uint32_t>(linesPerImage * images));
    }
};

/// The images of a document by their numbers, from 1, and the lines of their frames.
class DocumentView {
public:
    /// Both must outlive the view. Throws as the constructor of Flattening.
    DocumentView(const Document& document, const Drawing& drawing)
        : m_document(document)
        , m_drawing(drawing) {
        if (document.plane)
            m_flattening.emplace(*document.plane);
    }

    /// Visits the images from one number to another as the host added them: `visit(image, handles)`.
    template <typename Visit>
    void forEachAddedImage(std::int32_t first, std::int32_t last, const Visit& visit) const {
        HandleCounter counter = m_document.imageHandles();
        std::int32_t number = 0;
        for (const DxfImageObj& image : m_drawing.images) {
            if (number == last)
                return;
            if (!shows(image))
                continue;
            const ImageHandles handles = DxfImageObj::assignHandles(counter);
            if (++number >= first)
                visit(image, handles);
        }
    }

    /// Visits the images up to a number as they lie in the document: `visit(image, handles)`.
    template <typename Visit>
    void forEachImage(std::int32_t last, const Visit& visit) const {
        forEachAddedImage(1, last, [&](const DxfImageObj& image, const ImageHandles& handles) {
            place(image, [&](const DxfImageObj& placed) { visit(placed, handles); });
        });
    }

    /// Visits an image that the host added as it lies in the document: `visit(image)`.
    template <typename Visit>
    void place(const DxfImageObj& image, const Visit& visit) const {
        if (m_flattening)
            visit(m_flattening->image(image));
        else
            visit(image);
    }

    /// Visits all lines as they lie in the document: `visit(line, handle)`.
    template <typename Visit>
    void forEachLine(const Visit& visit) const {
        HandleCounter counter = m_document.lineHandles();
        forEachAddedImage(1, m_document.images, [&](const DxfImageObj& image, const ImageHandles&) {
            const auto lines = m_flattening ? m_flattening->frameLines(image) : image.frameLines();
            static_assert(lines.size() == Document::linesPerImage);
            for (const DxfLineObj& line : lines)
                visit(line, DxfLineObj::assignHandles(counter));
        });
    }

private:
    bool shows(const DxfImageObj& image) const {
        if (m_document.images == m_document.imagesInDrawing)
            return true;
        assert(m_document.plane); // in space nothing is left out
        return Flattening::shows(image, *m_document.plane);
    }

    const Document& m_document;
    const Drawing& m_drawing;
    std::optional<Flattening> m_flattening;
};

} // namespace rasterplan
