#pragma once

#include "dxf/Drawing.h"
#include "template/DxfSectionRegistry.h"

#include <RasterPlanWriter/RasterPlanWriter.h>

#include <string_view>

namespace rasterplan {

/// Writes a drawing to `outputPath`: fills the registry's sections from the drawing and streams the template
/// that lies beside the library, with its placeholder lines expanded.
///
/// Returns Success, CannotOpenOutput, CannotOpenTemplate or DxfFailure. What is thrown while sections are
/// built and filled leaves an existing output file as it was; std::range_error while it is written leaves the
/// lines before the failing placeholder.
RasterPlanWriter::ErrorEnum writeDxf(DxfSectionRegistry& registry, Drawing& drawing,
                                     std::wstring_view outputPath);

} // namespace rasterplan
