#pragma once

#include <RasterPlanWriter/ImageParam.h>

#include <filesystem>
#include <initializer_list>
#include <iosfwd>
#include <string_view>

namespace rasterplan::test {

/// Writes a line of two blanks, a word and numbers: in hexadecimal, so that no digit is lost, and the same in
/// every locale. Every NaN is "nan".
void reportNumbers(std::ostream& log, std::string_view word, std::initializer_list<double> numbers);

/// Writes what the getters of an image answer.
void reportImage(std::ostream& log, const ImageParam& image);

/// Writes the size of a file and its bytes, or "none".
void reportFile(std::ostream& log, const std::filesystem::path& file);

} // namespace rasterplan::test
