#include "dxf/DxfImageObj.h"

#include "dxf/DxfSectionImageEntity.h"
#include "dxf/DxfSectionObjects_DICTIONARY.h"
#include "dxf/DxfSectionObjects_IMAGEDEF.h"
#include "dxf/DxfSectionObjects_IMAGEDEFREACTOR.h"
#include "dxf/FileName.h"
#include "dxf/HeaderExtents.h"
#include "dxf/ValueGroup.h"
#include "math/MathPoint3d.h"

namespace rasterplan {
namespace {

MathMatrix frameOf(const ImageParam& image) {
    const TripleDouble rows[] = {image.getImgUVector(), image.getImgVVector(), image.getViewDir()};
    MathMatrix frame = MathMatrix::identity4();
    for (int i = 0; i < 3; ++i) {
        frame(i, 0) = rows[i].x;
        frame(i, 1) = rows[i].y;
        frame(i, 2) = rows[i].z;
    }
    return frame;
}

} // namespace

struct DxfImageObj::Corners {
    MathPoint3d leftTop;
    MathPoint3d leftBottom;
    MathPoint3d rightBottom;
};

DxfImageObj::DxfImageObj(const ImageParam& image, std::uint32_t number)
    : m_image(image)
    , m_frame(std::make_shared<const MathMatrix>(frameOf(image)))
    , m_number(number) {}

std::unique_ptr<DxfEntity> DxfImageObj::clone() const {
    return std::make_unique<DxfImageObj>(*this);
}

DxfSection DxfImageObj::createSection() const {
    return DxfSectionImageEntity();
}

void DxfImageObj::assignHandles(DxfSectionRegistry& registry) {
    m_entityHandle = {registry.nextHandle()};
    m_imageDefHandle = {registry.nextHandle()};
    m_reactorHandle = {registry.nextHandle()};
}

void DxfImageObj::fillSections(DxfSectionRegistry& registry) const {
    updateHeaderFromImage(registry, m_image);
    fillEntity(registry);
    fillObjects(registry);
}

MathPlane DxfImageObj::getImagePlane() const {
    return MathPlane(m_image.getLeftBottomCorner(), cross(m_image.getImgUVector(), m_image.getImgVVector()));
}

void DxfImageObj::translate(const MathVector3d& offset) {
    const Corners from = corners();
    m_image.setImageCorners(from.leftTop + offset, from.leftBottom + offset, from.rightBottom + offset);
}

void DxfImageObj::transform(const MathMatrix& matrix) {
    const Corners from = corners();
    m_image.setImageCorners(matrix.transform(from.leftTop), matrix.transform(from.leftBottom),
                            matrix.transform(from.rightBottom));
}

DxfImageObj::Corners DxfImageObj::corners() const noexcept {
    const MathPoint3d leftBottom = m_image.getLeftBottomCorner();
    return {leftBottom + MathVector3d(m_image.getImgVVector()) * m_image.getImgHeight(), leftBottom,
            leftBottom + MathVector3d(m_image.getImgUVector()) * m_image.getImgWidth()};
}

void DxfImageObj::fillEntity(DxfSectionRegistry& registry) const {
    constexpr auto& rows = imageEntityRows;
    constexpr Placeholder handle = rows[L"#VEXO_ENTITYIMAGE_HANDLE#"];
    constexpr Placeholder definition = rows[L"#VEXO_ENTITYIMAGE_OBJPOINTER#"];
    constexpr Placeholder reactor = rows[L"#VEXO_ENTITYIMAGE_HANDLEIMGDEFREACTOR#"];
    constexpr Placeholder insertionX = rows[L"#VEXO_ENTITYIMAGE_INSPNTX#"];
    constexpr Placeholder insertionY = rows[L"#VEXO_ENTITYIMAGE_INSPNTY#"];
    constexpr Placeholder insertionZ = rows[L"#VEXO_ENTITYIMAGE_INSPNTZ#"];
    constexpr Placeholder pixelUX = rows[L"#VEXO_ENTITYIMAGE_UVECX#"];
    constexpr Placeholder pixelUY = rows[L"#VEXO_ENTITYIMAGE_UVECY#"];
    constexpr Placeholder pixelUZ = rows[L"#VEXO_ENTITYIMAGE_UVECZ#"];
    constexpr Placeholder pixelVX = rows[L"#VEXO_ENTITYIMAGE_VVECX#"];
    constexpr Placeholder pixelVY = rows[L"#VEXO_ENTITYIMAGE_VVECY#"];
    constexpr Placeholder pixelVZ = rows[L"#VEXO_ENTITYIMAGE_VVECZ#"];
    constexpr Placeholder sizeU = rows[L"#VEXO_ENTITYIMAGE_IMGSIZEU#"];
    constexpr Placeholder sizeV = rows[L"#VEXO_ENTITYIMAGE_IMGSIZEV#"];
    constexpr Placeholder clipType = rows[L"#VEXO_ENTITYIMAGE_CLIPBOUNDTYPE#"];
    constexpr Placeholder clipVertices = rows[L"#VEXO_ENTITYIMAGE_CLIPBOUNDVERTNUM#"];
    constexpr Placeholder clipFarX = rows[L"#VEXO_ENTITYIMAGE_CLIPBOUNDVERTX2#"];
    constexpr Placeholder clipFarY = rows[L"#VEXO_ENTITYIMAGE_CLIPBOUNDVERTY2#"];
    constexpr std::int32_t rectangular = 1;

    const SectionKey section = sectionKey();
    const TripleDouble corner = m_image.getLeftBottomCorner();
    const double pixelWidth = m_image.getNumPixelWidth();
    const double pixelHeight = m_image.getNumPixelHeight();
    const MathVector3d pixelU = MathVector3d(m_image.getImgUVector()) * m_image.getImgWidth() / pixelWidth;
    const MathVector3d pixelV = MathVector3d(m_image.getImgVVector()) * m_image.getImgHeight() / pixelHeight;
    ValueGroup(registry, section)
        .set(handle, m_entityHandle)
        .set(definition, m_imageDefHandle)
        .set(reactor, m_reactorHandle)
        .set(insertionX, corner.x)
        .set(insertionY, corner.y)
        .set(insertionZ, corner.z)
        .set(pixelUX, pixelU.x)
        .set(pixelUY, pixelU.y)
        .set(pixelUZ, pixelU.z)
        .set(pixelVX, pixelV.x)
        .set(pixelVY, pixelV.y)
        .set(pixelVZ, pixelV.z)
        .set(sizeU, pixelWidth)
        .set(sizeV, pixelHeight)
        .set(clipType, rectangular)
        .set(clipVertices, 2)
        .set(clipFarX, pixelWidth - 0.5)
        .set(clipFarY, pixelHeight - 0.5)
        .check(section);
}

void DxfImageObj::fillObjects(DxfSectionRegistry& registry) const {
    constexpr auto& defRows = imageDefRows;
    constexpr Placeholder defHandle = defRows[L"#VEXO_OBJHANDLE#"];
    constexpr Placeholder defReactor = defRows[L"#VEXO_OBJ_REACTORHANDLE#"];
    constexpr Placeholder defFile = defRows[L"#VEXO_OBJ_FILENAME#"];
    constexpr Placeholder defSizeU = defRows[L"#VEXO_OBJ_IMGSIZEU#"];
    constexpr Placeholder defSizeV = defRows[L"#VEXO_OBJ_IMGSIZEV#"];
    constexpr Placeholder defPixelU = defRows[L"#VEXO_OBJ_PIXELSIZEU#"];
    constexpr Placeholder defPixelV = defRows[L"#VEXO_OBJ_PIXELSIZEV#"];
    constexpr auto& reactorRows = imageDefReactorRows;
    constexpr Placeholder reactorHandle = reactorRows[L"#VEXO_OBJIMAGEDEFREACTORHANDLE#"];
    constexpr Placeholder reactorOwner = reactorRows[L"#VEXO_OBJ_IMAGEDEFREACTOR2IMAGEHANDLE#"];
    constexpr Placeholder reactorImage = reactorRows[L"#VEXO_OBJ_IMAGEDEFREACTOR2IMAGEHANDLE2#"];
    constexpr Placeholder entryName = imageDictionaryEntryRows[L"#VEXO_OBJ_NAMEOBJ#"];
    constexpr Placeholder entryHandle = imageDictionaryEntryRows[L"#VEXO_OBJ_HANDLEOBJ#"];

    const auto number = static_cast<std::int32_t>(m_number);
    const SectionKey definition(TopLevelKey::objectImageDef, number);
    const SectionKey reactor(TopLevelKey::objectImageDefReactor, number);
    const SectionKey dictionary(TopLevelKey::objectDictionary);
    const std::wstring_view path = m_image.getImagePath() ? m_image.getImagePath() : L"";
    const double pixelSize = m_image.getPixelSizeInMillimeter();
    ValueGroup(registry, definition)
        .set(defHandle, m_imageDefHandle)
        .set(defReactor, m_reactorHandle)
        .set(defFile, path)
        .set(defSizeU, m_image.getNumPixelWidth())
        .set(defSizeV, m_image.getNumPixelHeight())
        .set(defPixelU, pixelSize)
        .set(defPixelV, pixelSize)
        .check(definition);
    ValueGroup(registry, reactor)
        .set(reactorHandle, m_reactorHandle)
        .set(reactorOwner, m_entityHandle)
        .set(reactorImage, m_entityHandle)
        .check(reactor);
    // The message names the definition: it is the record that has no name in the dictionary.
    ValueGroup(registry, dictionary)
        .set(entryName.inEntry(number), fileNameOf(path))
        .set(entryHandle.inEntry(number), m_imageDefHandle)
        .check(definition);
}

} // namespace rasterplan
