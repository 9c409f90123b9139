#pragma once

#include "template/OutputBuffer.h"
#include "template/TopLevelKey.h"

#include <cstdio>
#include <functional>

namespace rasterplan {

/// The most bytes of a template line, its line end not counted.
inline constexpr std::size_t longestTemplateLine = 511;

/// Copies the template to `out` line by line, each with CR LF; a line that begins with '#' is replaced by
/// what `expand` appends to `out` for it. What stands behind the last line feed counts as a line, even if it
/// is empty.
///
/// Returns true at the template's end. Returns false, and leaves out the rest, when a '#' line is no
/// top-level key or nothing is appended for it, after the first 511 bytes of a longer line, and when the
/// template cannot be read. Throws std::bad_alloc and what `expand` throws.
bool streamTemplate(std::FILE* source, OutputBuffer& out, const std::function<void(TopLevelKey)>& expand);

} // namespace rasterplan
