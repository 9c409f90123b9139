#pragma once

#include <RasterPlanWriter/RasterPlanWriter.h>

#include <filesystem>
#include <iosfwd>
#include <string>
#include <string_view>

namespace rasterplan::test {

/// Does what a scene says: a UTF-8 text with one command per line, words between blanks. Numbers have a point
/// in every locale. Lines that are empty or begin with '#' say nothing.
///
///     drawing [PATH]            a new facade for that output file, without a path for `defaultOutput`
///     default-drawing           a new facade that is told no output file
///     image UNIT PIXELS_PER_UNIT LEFT_TOP LEFT_BOTTOM RIGHT_BOTTOM [PATH]
///                               adds an image; corners are three numbers each, a path goes to the line's end
///     plane proposed            asks for the plane of the images
///     plane ORIGIN X_AXIS Y_AXIS
///     write3d                   writes the drawing
///     write2d                   writes it flattened into the last plane
///     locale NAME               sets the process's locale, for C and for C++
///     chdir PATH                changes the current folder
///     say TEXT                  writes the text on `log`
///     report                    has `log` show more from here on (host/Report.h): each image before it is
///                               added, each proposed plane, the drawing after each write. A new facade
///                               then begins without a file
///
/// Every call of the library is answered on `log` with its command and its result in words, an exception with
/// "exception" and its text. Throws std::runtime_error for a scene that is not as above, and when a locale
/// cannot be set or has no decimal comma.
void playScene(std::string_view scene, const std::filesystem::path& defaultOutput, std::ostream& log);

/// The name of a result.
std::string nameOf(RasterPlanWriter::ErrorEnum result);

} // namespace rasterplan::test
