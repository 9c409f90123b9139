#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace ZelkBase {

/// The most bytes that one wide character takes.
constexpr std::size_t utf8Capacity = 4;

/// Writes the UTF-8 bytes of one wide character to `out`, which has room for utf8Capacity bytes, and returns
/// the end of the bytes. Surrogates are encoded by themselves, in three bytes each. Throws std::range_error
/// for a value beyond 0x10FFFF.
constexpr char* encodeUtf8(wchar_t character, char* out) {
    const auto code = static_cast<char32_t>(character);
    const auto continuation = [code](int shift) {
        return static_cast<char>(0x80 | ((code >> shift) & 0x3F));
    };
    if (code < 0x80) {
        *out++ = static_cast<char>(code);
    } else if (code < 0x800) {
        *out++ = static_cast<char>(0xC0 | (code >> 6));
        *out++ = continuation(0);
    } else if (code < 0x10000) {
        *out++ = static_cast<char>(0xE0 | (code >> 12));
        *out++ = continuation(6);
        *out++ = continuation(0);
    } else if (code <= 0x10FFFF) {
        *out++ = static_cast<char>(0xF0 | (code >> 18));
        *out++ = continuation(12);
        *out++ = continuation(6);
        *out++ = continuation(0);
    } else {
        throw std::range_error("character beyond 0x10FFFF");
    }
    return out;
}

/// Throws std::range_error unless every character of `text` can be encoded.
void requireUtf8(std::wstring_view text);

/// Appends the UTF-8 bytes of `text`, character by character as encodeUtf8 does, without a byte order mark.
/// Throws std::range_error as encodeUtf8 does, and std::bad_alloc; `out` then ends somewhere within the text.
void appendUtf8(std::string& out, std::wstring_view text);

/// The UTF-8 bytes of `text`. Throws as appendUtf8 does.
std::string toUtf8(std::wstring_view text);

} // namespace ZelkBase
