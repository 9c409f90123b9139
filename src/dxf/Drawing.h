#pragma once

#include "base/List.h"
#include "dxf/DxfImageObj.h"
#include "dxf/DxfLineObj.h"
#include "dxf/DxfViewPortObj.h"

namespace rasterplan {

/// Everything that is written: images and lines in order of addition, and the view of them.
struct Drawing {
    ZelkBase::OwningList<DxfImageObj> images;
    ZelkBase::OwningList<DxfLineObj> lines;
    DxfViewPortObj viewport;
};

} // namespace rasterplan
