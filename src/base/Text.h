#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace ZelkBase {

/// A wide-character text of its own. It is never absent: a null pointer gives the empty text.
/// Nothing here depends on a locale. One thread at a time uses a text, reading included.
/// What allocates throws std::bad_alloc.
class Text {
public:
    Text() noexcept = default;
    Text(const wchar_t* text)
        : m_text(text ? text : L"") {}
    Text(std::wstring_view text)
        : m_text(text) {}

    /// The number in decimal. A character is a number too, so it does not become a text by itself.
    explicit Text(int number)
        : m_text(std::to_wstring(number)) {}

    Text(const Text& other)
        : m_text(other.m_text) {}
    Text(Text&& other) noexcept
        : m_text(std::move(other.m_text)) {
        other.changed();
    }
    virtual ~Text() = default;

    Text& operator=(const Text& other) {
        m_text = other.m_text;
        changed();
        return *this;
    }
    Text& operator=(Text&& other) noexcept {
        m_text = std::move(other.m_text);
        changed();
        other.changed();
        return *this;
    }

    /// Puts `other` behind this text.
    Text& append(const Text& other) {
        m_text.append(other.m_text);
        changed();
        return *this;
    }
    Text& operator+=(const Text& other) { return append(other); }

    /// Zero-terminated, never null; valid until the text changes.
    const wchar_t* c_str() const noexcept { return m_text.c_str(); }

    /// Number of wide characters before the terminator.
    std::size_t length() const noexcept { return m_text.size(); }
    bool empty() const noexcept { return m_text.empty(); }
    std::wstring_view view() const noexcept { return m_text; }

    /// Whether the text reads as the same number, be it read as a real number or as a 32-bit integer. Like
    /// those readings it takes the longest beginning that is a number, so "7 m" passes and "7.5" does not. A
    /// text that reads as the integer 0 must also show a digit 0 there, which tells "00" from "x".
    bool isInteger() const;

    /// The text as UTF-8, converted at the first call and kept until the text changes. Throws
    /// std::range_error when a character lies beyond U+10FFFF.
    const std::string& utf8() const;

    friend bool operator==(const Text& a, const Text& b) noexcept { return a.m_text == b.m_text; }
    friend Text operator+(Text a, const Text& b) { return std::move(a.append(b)); }

private:
    void changed() const noexcept { m_utf8.clear(); }

    std::wstring m_text;
    mutable std::string m_utf8; ///< Empty until asked for; only the empty text converts to an empty one.
};

} // namespace ZelkBase
