#pragma once

#include <span>
#include <string>
#include <string_view>

namespace rasterplan_tool {

/// For a misspelt word: ` (did you mean "unit"?)` with the candidate that it resembles most, to stand behind
/// it in a message; an empty text where it resembles none.
std::string suggestionText(std::string_view word, std::span<const std::string_view> candidates);

} // namespace rasterplan_tool
