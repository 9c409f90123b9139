#pragma once

#include "template/DxfSectionRegistry.h"

#include <RasterPlanWriter/ImageParam.h>

namespace rasterplan {

/// Widens $EXTMIN and $EXTMAX by one image and sets $INSUNITS to its unit, so that the last image decides.
///
/// $EXTMIN is the least left-bottom corner. $EXTMAX becomes, axis by axis, the far corner of an image whose
/// left-bottom corner plus both unit vectors lies above it: a far corner of its own is not compared.
///
/// Throws DxfError when a section lacks a value ("Failure while setting Map: VEXO_HEADER_EXTMIN", "... EXMAX"
/// spelled so, or "Failure while setting Map."), and std::invalid_argument or std::out_of_range when a stored
/// extent does not read as a number. What was set before stays.
void updateHeaderFromImage(DxfSectionRegistry& registry, const ImageParam& image);

} // namespace rasterplan
