#pragma once

/// @file
/// The results in words.

#include <RasterPlanWriter/RasterPlanWriter.h>

/// A result in words, English and without a full stop, for a message to a user. The text lives as long as the
/// program; a number that is no result gives "unknown result". Never throws.
inline const char* resultText(RasterPlanWriter::ErrorEnum result) noexcept {
    switch (result) {
    case RasterPlanWriter::Success:
        return "done";
    case RasterPlanWriter::NoImage:
        return "no image has been added";
    case RasterPlanWriter::InvalidGeometry:
        return "the image is no rectangle with two sides, or the images have no common plane";
    case RasterPlanWriter::CannotOpenOutput:
        return "the output file cannot be opened for writing";
    case RasterPlanWriter::CannotOpenTemplate:
        return "there is no readable template beside the library";
    case RasterPlanWriter::DxfFailure:
        return "the drawing cannot be completed";
    case RasterPlanWriter::UnexpectedFailure:
        return "out of memory, or the drawing object was moved from";
    }
    return "unknown result";
}
