#include "base/ResultText.h"

namespace rasterplan_tool {

std::string_view writeResultText(RasterPlanWriter::ErrorEnum result) {
    switch (result) {
    case RasterPlanWriter::Success:
        return "the drawing was written";
    case RasterPlanWriter::NoImage:
        return "no image was added; list at least one in SITE.json";
    case RasterPlanWriter::InvalidGeometry:
        return "the images' geometry was rejected; check their corners";
    case RasterPlanWriter::CannotOpenOutput:
        return "no file can be created in the output folder; check that you may write there and that the "
               "disk is "
               "not full";
    case RasterPlanWriter::CannotOpenTemplate:
        return "the file \"PrepImageAbschnitte_2010.template\" is missing beside the RasterPlanWriter "
               "library or "
               "cannot be read; install the program again";
    case RasterPlanWriter::DxfFailure:
        return "the drawing could not be completed, because the file \"PrepImageAbschnitte_2010.template\" "
               "beside "
               "the RasterPlanWriter library is damaged; install the program again";
    case RasterPlanWriter::UnexpectedFailure:
        return "the memory ran out or the system's file functions failed; close other programs, check the "
               "disk and "
               "try again";
    }
    return "the library answered with a result that this program does not know; install both in the same "
           "version";
}

} // namespace rasterplan_tool
