#pragma once

#include <bit>
#include <cstddef>
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
    enum class Kind : std::uint8_t { unset, text, plainText, real, integer, handle };

    /// No value: the line says what its table says.
    constexpr SectionValue() noexcept = default;

    /// Written with 17 decimals.
    constexpr SectionValue(double real) noexcept
        : SectionValue(Kind::real, std::bit_cast<std::uint64_t>(real)) {}

    /// Written in decimal.
    constexpr SectionValue(std::int32_t integer) noexcept
        : SectionValue(Kind::integer, static_cast<std::uint32_t>(integer)) {}

    /// Written in hexadecimal.
    constexpr SectionValue(Handle handle) noexcept
        : SectionValue(Kind::handle, static_cast<std::uint32_t>(handle.number)) {}

    /// Written as it stands. The characters are copied when the value is stored, and kept as plain text, a
    /// byte each, where all of them are printable ASCII: most are, and a wide character has up to four bytes.
    constexpr SectionValue(std::wstring_view text) noexcept
        : SectionValue(Kind::text, text.size(), text.data()) {}
    constexpr SectionValue(const wchar_t* text) noexcept
        : SectionValue(std::wstring_view(text)) {}

    /// A value from its parts: see payload(). Of a text also the characters, of a plain text narrow ones.
    constexpr SectionValue(Kind kind, std::uint64_t payload, const void* characters = nullptr) noexcept
        : m_payload(payload)
        , m_characters(characters)
        , m_kind(kind) {}

    constexpr Kind kind() const noexcept { return m_kind; }

    /// The bits of a real, the number of an integer or a handle, the length of a text, 0 where unset.
    constexpr std::uint64_t payload() const noexcept { return m_payload; }

    /// Each of the following belongs to its kind and may be asked of no other.
    constexpr double real() const noexcept { return std::bit_cast<double>(m_payload); }
    constexpr std::int32_t integer() const noexcept {
        return static_cast<std::int32_t>(static_cast<std::uint32_t>(m_payload));
    }
    constexpr Handle handle() const noexcept { return {integer()}; }
    std::wstring_view text() const noexcept {
        return {static_cast<const wchar_t*>(m_characters), static_cast<std::size_t>(m_payload)};
    }
    std::string_view plainText() const noexcept {
        return {static_cast<const char*>(m_characters), static_cast<std::size_t>(m_payload)};
    }

private:
    std::uint64_t m_payload = 0;
    const void* m_characters = nullptr;
    Kind m_kind = Kind::unset;
};

} // namespace rasterplan
