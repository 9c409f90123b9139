#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace rasterplan {

/// The wide characters of a text in UTF-8: of 32 bits one for each code point, of 16 bits a surrogate pair
/// for those beyond U+FFFF. A surrogate that stands alone is kept. Nothing for bytes that are no UTF-8
/// otherwise: cut off, longer than needed, or beyond U+10FFFF. Throws std::bad_alloc.
std::optional<std::wstring> wideText(std::string_view utf8);

/// The wide characters of a text in UTF-16, which ends with a zero; wide ones of 32 bits take a surrogate
/// pair as one. A surrogate that stands alone is kept. Throws std::bad_alloc.
std::wstring wideText(const std::uint16_t* utf16);

} // namespace rasterplan
