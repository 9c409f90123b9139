#pragma once

#include <string_view>

namespace rasterplan_tool {

/// What kind of drawing a file holds, as its first bytes tell.
enum class DxfForm {
    Text,   ///< Perhaps a text DXF; only reading it shows whether.
    Binary, ///< A binary DXF, which says the same in another form.
    Dwg     ///< A DWG drawing of any version.
};

/// Tells the kind of a drawing by its bytes, of which the first 22 are enough.
DxfForm formOf(std::string_view bytes);

} // namespace rasterplan_tool
