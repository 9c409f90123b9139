#pragma once

#include "dxf/Drawing.h"
#include "dxf/DxfSectionRegistry.h"

#include <RasterPlanWriter/RasterPlanWriter.h>

#include <atomic>
#include <string>

/// What a facade and its copies share.
struct RasterPlanWriter::Implementation {
    rasterplan::Drawing drawing;
    rasterplan::DxfSectionRegistry registry{drawing};
    std::wstring outputPath;
    std::atomic<int> facades{1};
};
