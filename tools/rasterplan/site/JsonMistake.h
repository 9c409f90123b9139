#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace rasterplan_tool {

/// A place in a JSON text.
struct JsonPlace {
    std::size_t line = 1;   ///< Counted from 1.
    std::size_t column = 1; ///< In characters, counted from 1.
    std::size_t element =
        0; ///< In or behind which element of a list in the root it lies, from 1; 0 for none.
};

/// What makes a text no JSON.
struct JsonMistake {
    JsonPlace place;
    std::string text; ///< What is wrong and what to do, in words for the user.
};

/// Puts into words why a parser stopped with the byte at `offset`, which is the text's size at its end. All
/// before the word that holds this byte must be right.
JsonMistake explainMistake(std::string_view text, std::size_t offset);

} // namespace rasterplan_tool
