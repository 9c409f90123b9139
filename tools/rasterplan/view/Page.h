#pragma once

#include "view/DrawingScene.h"

#include <functional>
#include <ostream>
#include <string>

namespace rasterplan_tool {

/// Whether this program holds the parts of pages; a build without three.js does not.
bool canWritePages();

/// Writes the page that shows a scene; `title` is UTF-8. `source` answers, picture by picture in their order,
/// with the address from which a browser gets the picture.
void writePage(std::ostream& page, const std::string& title, const DrawingScene& scene,
               const std::function<std::string(const ScenePicture&)>& source);

} // namespace rasterplan_tool
