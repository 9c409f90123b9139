#pragma once

#include "HostImage.h"
#include "Scene.h"

#include "dxf/Drawing.h"

#include <vector>

namespace bench {

/// The first `count` pictures of the scene, as a host describes them.
inline std::vector<ImageParam> imagesOf(int count) {
    Scene scene;
    std::vector<ImageParam> images;
    images.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        images.push_back(hostImage(scene.next()));
    return images;
}

/// A drawing of them.
inline rasterplan::Drawing drawingOf(int count) {
    rasterplan::Drawing drawing;
    for (const ImageParam& image : imagesOf(count))
        drawing.add(image);
    return drawing;
}

} // namespace bench
