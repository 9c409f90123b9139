#pragma once

#include "base/List.h"
#include "dxf/DxfImageObj.h"
#include "dxf/DxfViewPortObj.h"

#include <RasterPlanWriter/ImageParam.h>

namespace rasterplan {

/// What a host has added: images in order of addition, and the view of them. Images are only ever appended
/// and never change.
struct Drawing {
    ZelkBase::OwningList<DxfImageObj> images;
    DxfViewPortObj viewport;

    /// Adds an image and widens the view by it; false, and nothing is added, unless it is a rectangle.
    /// Throws std::bad_alloc; the view is not widened then, but the image may have been added.
    bool add(const ImageParam& image) {
        DxfImageObj object(image);
        if (!object.isRectangle())
            return false;
        images.append(std::move(object));
        viewport.addImage(image);
        return true;
    }
};

} // namespace rasterplan
