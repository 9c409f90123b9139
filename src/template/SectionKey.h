#pragma once

#include "template/TopLevelKey.h"

#include <charconv>
#include <cstdint>
#include <string>
#include <string_view>

namespace rasterplan {

/// The key under which a section is filed: a top-level key, alone or followed by a number from 1.
/// It stands for its text; eight bytes, because every drawing object holds one.
class SectionKey {
public:
    /// The key that no section is filed under; its text is empty.
    constexpr SectionKey() noexcept = default;

    /// The top-level key itself (number 0), or one of its numbered keys.
    constexpr SectionKey(TopLevelKey key, std::int32_t number = 0) noexcept
        : m_key(key)
        , m_number(number) {}

    /// Reads a text such as "#VEXO_ENTITY_IMAGE#" or "#VEXO_ENTITY_IMAGE#12"; any other gives the default
    /// key.
    SectionKey(std::wstring_view text) {
        const std::size_t nameLength = text.rfind(L'#') + 1;
        const std::string digits(text.begin() + static_cast<std::ptrdiff_t>(nameLength), text.end());
        if (const auto key = findTopLevelKey(text.substr(0, nameLength))) {
            std::int32_t number = 0;
            std::from_chars(digits.data(), digits.data() + digits.size(), number);
            const SectionKey read(*key, number);
            if (read.text() == text)
                *this = read;
        }
    }
    SectionKey(const wchar_t* text)
        : SectionKey(std::wstring_view(text)) {}

    /// False for the default key only.
    constexpr bool isValid() const noexcept { return m_number >= 0; }

    /// The top-level key; of a valid key only.
    constexpr TopLevelKey topLevelKey() const noexcept { return m_key; }

    /// The number from 1, or 0 for the top-level key itself.
    constexpr std::int32_t number() const noexcept { return m_number; }

    /// The key as text, the number directly behind the closing '#'.
    std::wstring text() const {
        if (!isValid())
            return {};
        std::wstring text(textOf(m_key));
        return m_number == 0 ? text : text + std::to_wstring(m_number);
    }

    friend constexpr bool operator==(const SectionKey&, const SectionKey&) noexcept = default;

private:
    TopLevelKey m_key = TopLevelKey::headerExtMin;
    std::int32_t m_number = -1;
};

} // namespace rasterplan
