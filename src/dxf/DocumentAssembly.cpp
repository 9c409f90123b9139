#include "dxf/DocumentAssembly.h"

#include "dxf/DxfSectionClass.h"
#include "dxf/DxfSectionHeader.h"
#include "dxf/DxfSectionObjects_DICTIONARY.h"
#include "dxf/DxfSectionObjects_IMAGEDEF.h"
#include "dxf/DxfSectionObjects_IMAGEDEFREACTOR.h"
#include "dxf/DxfSectionTable_VPORT.h"

#include <memory>

namespace rasterplan {
namespace {

template <typename Section>
void fileOnePerImage(DxfSectionRegistry& registry, TopLevelKey key, std::int32_t images) {
    for (std::int32_t i = 0; i < images; ++i) {
        const SectionKey instance = registry.makeInstanceKey(key);
        registry.fileSection(instance, Section());
    }
}

template <typename Entity>
void fileOnePerEntity(DxfSectionRegistry& registry, TopLevelKey key, ZelkBase::OwningList<Entity>& entities) {
    for (Entity& entity : entities) {
        const SectionKey instance = registry.makeInstanceKey(key);
        registry.fileSection(instance, entity.createSection());
        entity.setSectionKey(instance);
    }
}

template <typename Entity>
void populate(DxfSectionRegistry& registry, ZelkBase::OwningList<Entity>& entities) {
    for (Entity& entity : entities) {
        entity.assignHandles(registry);
        entity.fillSections(registry);
    }
}

} // namespace

void buildSections(DxfSectionRegistry& registry, Drawing& drawing) {
    using enum TopLevelKey;
    const std::int32_t images = drawing.images.count();
    registry.fileSection(headerExtMin, DxfHeaderSection_EXTMIN());
    registry.fileSection(headerExtMax, DxfHeaderSection_EXTMAX());
    registry.fileSection(headerHandSeed, DxfHeaderSection_HANDSEED());
    registry.fileSection(headerInsUnits, DxfHeaderSection_INSUNITS());
    registry.fileSection(classImageDef, DxfSectionClass_IMAGEDEF(images));
    registry.fileSection(classImageDefReactor, DxfSectionClass_IMAGEDEF_REACTOR(images));
    registry.fileSection(classImage, DxfSectionClass_IMAGE(images));
    registry.fileSection(tableVPort, DxfSectionTable_VPORT());
    fileOnePerImage<DxfSectionObjects_IMAGEDEFREACTOR>(registry, objectImageDefReactor, images);
    fileOnePerImage<DxfSectionObjects_IMAGEDEF>(registry, objectImageDef, images);
    registry.fileSection(objectDictionary, DxfSectionObjects_DICTIONARY(images));
    fileOnePerEntity(registry, entityLine, drawing.lines);
    fileOnePerEntity(registry, entityImage, drawing.images);
}

void populateSections(DxfSectionRegistry& registry, Drawing& drawing) {
    constexpr Placeholder handleSeed = headerVarRows[L"#VEXO_VAR_HANDLEVALUE#"];

    populate(registry, drawing.lines);
    populate(registry, drawing.images);
    drawing.viewport.fillSections(registry);
    registry.setSectionValue(TopLevelKey::headerHandSeed, handleSeed, Handle{registry.nextHandle()});
}

} // namespace rasterplan
