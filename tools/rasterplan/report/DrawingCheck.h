#pragma once

#include "reader/DxfRecords.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace rasterplan_tool {

/// Why a picture of a drawing does not show; the weightiest reason first.
enum class FindingKind {
    NoImageDictionary, ///< The root dictionary leads to no image dictionary, or that not to the definition.
    ClassCount,        ///< A class of image records counts none of them.
    BrokenRing,        ///< Image, definition and reactor do not name each other.
    EmptyClipBoundary, ///< The image is clipped to nothing.
    SharedHandle,      ///< Two records have one handle.
    HiddenObliquely,   ///< The image is not shown in a view that is not at a right angle to it.
    SwitchedOff,       ///< The image itself is not to be shown.
    HiddenLayer,       ///< The layer of images is off or frozen.
    NotInserted,       ///< The block of images is inserted nowhere.
    NoExtent,          ///< The image has no width or height, or no numbers for them.
    NoFile,            ///< The definition names no file.
    FileMissing,       ///< The file is in none of the places where it is looked for.
    UnreadableFile,    ///< The file is no picture that can be read.
    PixelCount,        ///< The pixel counts of image, definition and file differ.
    Damaged,           ///< The text is no DXF from some line on, or its sections are mixed up.
    CutShort           ///< The drawing ends too early.
};

/// The name of a kind as --json prints it.
std::string_view kindName(FindingKind kind);

/// One reason, and where the drawing holds it.
struct Finding {
    FindingKind kind;
    std::string record; ///< Type of the record; empty where the reason belongs to none.
    std::string handle; ///< The record's handle as it is written; empty where it has none.
    std::size_t line;   ///< Line in which the record begins, or the fault stands.
    std::string text;   ///< What is wrong and what to do; may hold what stands in the drawing, as it is.
};

/// All reasons that the records of a drawing hold, without a look at the picture files; in order of weight,
/// then of lines. Of a drawing that is cut short nothing is said of its last record, nor what its
/// missing part might answer. A
/// drawing of any writer gets no finding that hides none of its pictures; HiddenObliquely is found at images
/// that stand upright or that the active view does not see at a right angle.
std::vector<Finding> checkRecords(const DxfDrawing& drawing);

/// Brings findings into their order.
void sortByWeight(std::vector<Finding>& findings);

} // namespace rasterplan_tool
