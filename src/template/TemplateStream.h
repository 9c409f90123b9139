#pragma once

#include "template/DxfSectionRegistry.h"
#include "template/OutputBuffer.h"

#include <cstdio>

namespace rasterplan {

/// The most bytes of a template line, its line end not counted.
inline constexpr std::size_t longestTemplateLine = 511;

/// Copies the template to `out` line by line, each with CR LF; a line that begins with '#' is replaced by
/// what the registry renders for it. What stands behind the last line feed counts as a line, even if it is
/// empty.
///
/// Returns true at the template's end. Returns false, and leaves out the rest, when a '#' line renders
/// nothing, after the first 511 bytes of a longer line, and when the template cannot be read. Throws as
/// DxfSectionRegistry::renderPlaceholder does.
bool streamTemplate(std::FILE* source, const DxfSectionRegistry& registry, OutputBuffer& out);

} // namespace rasterplan
