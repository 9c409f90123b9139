#pragma once

#include <cstdint>
#include <string_view>

namespace rasterplan {

/// The number of a DXF handle; its text is upper-case hexadecimal. 0 is no handle and has an empty text.
struct Handle {
    std::int32_t number = 0;

    friend constexpr bool operator==(Handle, Handle) noexcept = default;
};

/// What one line of a record says. Numbers stay numbers until they are written: that takes eight bytes, and
/// the text is made once. A text is viewed, not owned.
class SectionValue {
public:
    enum class Kind : std::uint8_t { unset, text, real, integer, handle };

    /// No value: the line says what its table says.
    constexpr SectionValue() noexcept
        : m_integer(0)
        , m_kind(Kind::unset) {}

    /// Written with 17 decimals.
    constexpr SectionValue(double real) noexcept
        : m_real(real)
        , m_kind(Kind::real) {}

    /// Written in decimal.
    constexpr SectionValue(std::int32_t integer) noexcept
        : m_integer(integer)
        , m_kind(Kind::integer) {}

    /// Written in hexadecimal.
    constexpr SectionValue(Handle handle) noexcept
        : m_integer(handle.number)
        , m_kind(Kind::handle) {}

    /// Written as it stands. The characters are copied when the value is stored.
    constexpr SectionValue(std::wstring_view text) noexcept
        : m_text(text)
        , m_kind(Kind::text) {}
    constexpr SectionValue(const wchar_t* text) noexcept
        : SectionValue(std::wstring_view(text)) {}

    constexpr Kind kind() const noexcept { return m_kind; }

    /// Each of the following belongs to its kind and may be asked of no other.
    constexpr double real() const noexcept { return m_real; }
    constexpr std::int32_t integer() const noexcept { return m_integer; }
    constexpr Handle handle() const noexcept { return {m_integer}; }
    constexpr std::wstring_view text() const noexcept { return m_text; }

private:
    union {
        double m_real;
        std::int32_t m_integer;
        std::wstring_view m_text;
    };
    Kind m_kind;
};

} // namespace rasterplan
