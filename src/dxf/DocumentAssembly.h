#pragma once

#include "dxf/Drawing.h"
#include "template/DxfSectionRegistry.h"

namespace rasterplan {

/// Files one section for every record of the drawing: the fixed ones under their top-level keys, where the
/// first document's stay, the repeated ones under fresh numbers. Throws ZelkBase::Error for an empty list
/// entry and std::bad_alloc; what was filed before stays.
void buildSections(DxfSectionRegistry& registry, Drawing& drawing);

/// Gives every object of the drawing its handles, lets it write its values, and sets the handle seed, one
/// above the last handle. Throws as buildSections and DxfEntity::fillSections do.
void populateSections(DxfSectionRegistry& registry, Drawing& drawing);

} // namespace rasterplan
