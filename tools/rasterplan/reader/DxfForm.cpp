#include "reader/DxfForm.h"

namespace rasterplan_tool {
namespace {

constexpr std::string_view binarySignature("AutoCAD Binary DXF\r\n\x1a\0", 22);

// A DWG begins with its version, such as AC1024; a text DXF with the number of a code.
bool isDwgVersion(std::string_view bytes) {
    return bytes.size() > 2 && bytes.starts_with("AC") && bytes[2] >= '0' && bytes[2] <= '9';
}

} // namespace

DxfForm formOf(std::string_view bytes) {
    if (bytes.starts_with(binarySignature))
        return DxfForm::Binary;
    return isDwgVersion(bytes) ? DxfForm::Dwg : DxfForm::Text;
}

} // namespace rasterplan_tool
