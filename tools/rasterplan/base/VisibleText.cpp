#include "base/VisibleText.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace rasterplan_tool {
namespace {

// The beginning of a text: a character, or a byte that begins none.
struct Unit {
    char32_t code = 0;
    std::size_t length = 1;
    bool isCharacter = false;
};

struct Sequence {
    unsigned char mask;
    unsigned char lead;
    std::size_t length;
    char32_t smallest; // a longer form than needed is no UTF-8
};

constexpr std::array<Sequence, 4> sequences{{
    {0x80, 0x00, 1, 0},
    {0xE0, 0xC0, 2, 0x80},
    {0xF0, 0xE0, 3, 0x800},
    {0xF8, 0xF0, 4, 0x10000},
}};

struct Range {
    char32_t first;
    char32_t last;
};

constexpr std::array<Range, 4> lineBreaking{{
    {0x00, 0x1F},
    {0x7F, 0x7F},
    {0x80, 0x9F}, // the control characters of eight bits, NEXT LINE among them
    {0x2028, 0x2029},
}};

constexpr std::array<Range, 4> directionTurning{{
    {0x061C, 0x061C},
    {0x200E, 0x200F},
    {0x202A, 0x202E},
    {0x2066, 0x2069},
}};

template <std::size_t size>
bool isIn(const std::array<Range, size>& ranges, char32_t code) {
    return std::any_of(ranges.begin(), ranges.end(),
                       [code](const Range& range) { return code >= range.first && code <= range.last; });
}

Unit firstUnit(std::string_view text) {
    const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const Unit noCharacter{byte(0), 1, false};
    const auto* const sequence = std::find_if(sequences.begin(), sequences.end(), [&](const Sequence& each) {
        return (byte(0) & each.mask) == each.lead;
    });
    if (sequence == sequences.end() || sequence->length > text.size())
        return noCharacter;
    char32_t code = byte(0) & static_cast<unsigned char>(~sequence->mask);
    for (std::size_t i = 1; i < sequence->length; ++i) {
        if ((byte(i) & 0xC0U) != 0x80U)
            return noCharacter;
        code = code << 6U | (byte(i) & 0x3FU);
    }
    const bool isSurrogate = code >= 0xD800 && code <= 0xDFFF;
    return code < sequence->smallest || code > 0x10FFFF || isSurrogate ? noCharacter
                                                                       : Unit{code, sequence->length, true};
}

// The text that stands for a unit; empty where the unit may stand itself.
class Escape {
public:
    explicit Escape(const Unit& unit) {
        if (!unit.isCharacter) {
            appendCode('x', unit.code, 2);
        } else if (unit.code == '\n' || unit.code == '\r' || unit.code == '\t') {
            append('\\');
            append(unit.code == '\n' ? 'n' : unit.code == '\r' ? 'r' : 't');
        } else if (isIn(lineBreaking, unit.code) || isIn(directionTurning, unit.code)) {
            const bool isAscii = unit.code < 0x80;
            appendCode(isAscii ? 'x' : 'u', unit.code, isAscii ? 2 : 4);
        }
    }

    std::string_view text() const { return {m_text.data(), m_length}; }

private:
    void append(char c) { m_text[m_length++] = c; }

    void appendCode(char kind, char32_t code, int digits) {
        append('\\');
        append(kind);
        for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4)
            append("0123456789abcdef"[code >> shift & 0xFU]);
    }

    std::array<char, 8> m_text{};
    std::size_t m_length = 0;
};

template <typename Append>
void eachPiece(std::string_view text, const Append& append) {
    while (!text.empty()) {
        const Unit unit = firstUnit(text);
        const Escape escape(unit);
        append(escape.text().empty() ? text.substr(0, unit.length) : escape.text());
        text.remove_prefix(unit.length);
    }
}

} // namespace

std::string visible(std::string_view text) {
    std::string result;
    eachPiece(text, [&result](std::string_view piece) { result += piece; });
    return result;
}

void printVisible(std::ostream& stream, std::string_view text) {
    eachPiece(text, [&stream](std::string_view piece) { stream << piece; });
}

bool breaksLines(std::string_view text) {
    while (!text.empty()) {
        const Unit unit = firstUnit(text);
        if (unit.isCharacter && isIn(lineBreaking, unit.code))
            return true;
        text.remove_prefix(unit.length);
    }
    return false;
}

} // namespace rasterplan_tool
