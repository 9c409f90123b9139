#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace rasterplan::test {

/// How many of each a drawing should hold.
struct StructureCounts {
    std::size_t images;
    std::size_t lines;
};

/// Six lines for every image.
constexpr StructureCounts framedImages(std::size_t images) {
    return {images, 6 * images};
}

/// Walks a written drawing and says all that is wrong with it, a sentence each; empty when nothing is.
///
/// That is every finding of the tool's checkRecords, and what only a drawing of this library must hold: lines
/// that end with CR LF, pairs that are strictly code and value, values that fit their code, no pointer to no
/// record, no handle above $HANDSEED, the right number of each record and in each class, dictionaries and
/// reactors in their one form, and clip boundaries of the whole picture.
std::vector<std::string> structureFindings(std::string_view drawing, const StructureCounts& counts);

} // namespace rasterplan::test
