#pragma once

#include "dxf/DxfSectionRegistry.h"
#include "dxf/Flattening.h"

#include <RasterPlanWriter/RasterPlanWriter.h>

#include <optional>
#include <string_view>

namespace rasterplan {

/// Writes the drawing of `registry` to `outputPath`, in space or flattened into `plane`: adds a document and
/// streams the template that lies beside the library, with its placeholder lines expanded.
///
/// Returns Success, CannotOpenOutput, CannotOpenTemplate or DxfFailure. What DxfSectionRegistry::addDocument
/// throws leaves an existing output file as it was; std::range_error while it is written leaves the lines
/// before the failing placeholder.
RasterPlanWriter::ErrorEnum writeDxf(DxfSectionRegistry& registry, const std::optional<ReferencePlane>& plane,
                                     std::wstring_view outputPath);

} // namespace rasterplan
