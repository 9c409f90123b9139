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
/// CAD programs refuse drawings, or leave pictures out, for any of: a line that does not end with CR LF,
/// pairs that are not strictly code and value, values that do not fit their code, records that share a
/// handle, a pointer to no record, a handle not below $HANDSEED, a picture that the root dictionary does not
/// lead to by way of the image dictionary, an open ring of image, definition and reactor, class counts that
/// are not the number of images, and an empty clip boundary.
std::vector<std::string> structureFindings(std::string_view drawing, const StructureCounts& counts);

} // namespace rasterplan::test
