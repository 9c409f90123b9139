#include "base/Suggestion.h"

#include "base/LetterCase.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace rasterplan_tool {
namespace {

// How many letters must be put in, taken out or changed to make one word of the other.
std::size_t editDistance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t changed = diagonal + (a[i] == b[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({changed, row[j] + 1, row[j + 1] + 1});
        }
    }
    return row.back();
}

} // namespace

std::string suggestionText(std::string_view word, std::span<const std::string_view> candidates) {
    constexpr std::size_t longestWord = 64; // no misspelling is longer, and the work grows with it
    if (word.size() > longestWord)
        return {};
    const std::string small = inSmallLetters(word);
    std::string_view best;
    std::size_t least = std::max<std::size_t>(word.size() / 3, 1) + 1;
    for (const std::string_view candidate : candidates) {
        const std::size_t distance = editDistance(small, inSmallLetters(candidate));
        if (distance < least) {
            least = distance;
            best = candidate;
        }
    }
    return best.empty() ? std::string() : " (did you mean \"" + std::string(best) + "\"?)";
}

} // namespace rasterplan_tool
