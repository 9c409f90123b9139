#include "base/Text.h"

#include "base/ParseNumber.h"
#include "base/Utf8.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <stdexcept>

namespace ZelkBase {
namespace {

// 0 for a text that does not begin with a number, NaN for a number that no double can hold.
double readReal(std::wstring_view text) {
    try {
        return parseNumber(text);
    } catch (const std::invalid_argument&) {
        return 0;
    } catch (const std::out_of_range&) {
        return std::numeric_limits<double>::quiet_NaN();
    }
}

// 0 for a text that does not begin with an integer; the nearest limit for one beyond 32 bits.
std::int32_t readInteger(std::wstring_view text) {
    using Limits = std::numeric_limits<std::int32_t>;
    text.remove_prefix(std::min(text.find_first_not_of(L" \t\n\v\f\r"), text.size()));
    const bool negative = text.starts_with(L'-');
    if (negative || text.starts_with(L'+'))
        text.remove_prefix(1);

    std::int64_t value = 0;
    for (const wchar_t digit : text) {
        if (digit < L'0' || digit > L'9')
            break;
        value = std::min<std::int64_t>(value * 10 + (digit - L'0'), std::int64_t{Limits::max()} + 1);
    }
    return static_cast<std::int32_t>(
        std::clamp<std::int64_t>(negative ? -value : value, Limits::min(), Limits::max()));
}

} // namespace

bool Text::isInteger() const {
    const std::int32_t integer = readInteger(m_text);
    if (readReal(m_text) != integer)
        return false;
    if (integer != 0)
        return true;
    // Text without a number reads as 0 too; a digit that was read shows once it is no longer 0.
    std::wstring marked = m_text;
    std::replace(marked.begin(), marked.end(), L'0', L'1');
    return readInteger(marked) != 0;
}

const std::string& Text::utf8() const {
    if (m_utf8.empty())
        m_utf8 = toUtf8(m_text);
    return m_utf8;
}

} // namespace ZelkBase
