#include "host/Report.h"

#include "support/TestFolder.h"

#include <array>
#include <charconv>
#include <cmath>
#include <ostream>
#include <string>

namespace rasterplan::test {
namespace {

std::string hexadecimal(double number) {
    if (std::isnan(number))
        return "nan";
    std::array<char, 32> text;
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::hex).ptr;
    return {text.data(), end};
}

} // namespace

void reportNumbers(std::ostream& log, std::string_view word, std::initializer_list<double> numbers) {
    log << "  " << word;
    for (const double number : numbers)
        log << ' ' << hexadecimal(number);
    log << '\n';
}

void reportImage(std::ostream& log, const ImageParam& image) {
    const DrawingUnit unit = image.getDrawingUnit();
    const TripleDouble u = image.getImgUVector();
    const TripleDouble v = image.getImgVVector();
    const TripleDouble direction = image.getViewDir();
    const TripleDouble leftBottom = image.getLeftBottomCorner();
    const TripleDouble rightTop = image.getRightTopCorner();
    reportNumbers(log, "size",
                  {image.getImgWidth(), image.getImgHeight(), image.getNumPixelWidth(),
                   image.getNumPixelHeight(), image.getNumPixelPerUnit(), image.getPixelSizeInMillimeter()});
    reportNumbers(log, "unit " + std::to_string(unit), {image.getSizeInMillimeterOfDrawingUnit(unit)});
    reportNumbers(log, "axes", {u.x, u.y, u.z, v.x, v.y, v.z, direction.x, direction.y, direction.z});
    reportNumbers(log, "corners",
                  {leftBottom.x, leftBottom.y, leftBottom.z, rightTop.x, rightTop.y, rightTop.z});
}

void reportFile(std::ostream& log, const std::filesystem::path& file) {
    if (!exists(file)) {
        log << "  file none\n";
        return;
    }
    const std::string bytes = readBytes(file);
    log << "  file " + std::to_string(bytes.size()) + '\n' << bytes << '\n';
}

} // namespace rasterplan::test
