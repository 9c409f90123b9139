#pragma once

#include "template/SectionValue.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace rasterplan {

/// Values in a row, nine bytes each, because a drawing holds some seventy per image. Memory is taken when the
/// first value is set, for as many as there are by then.
class SlotArray {
public:
    /// `count` values, all unset.
    explicit SlotArray(std::size_t count = 0) noexcept
        : m_count(count) {}

    /// Leaves `other` without values.
    SlotArray(SlotArray&& other) noexcept
        : m_count(std::exchange(other.m_count, 0))
        , m_memory(std::move(other.m_memory)) {}
    SlotArray& operator=(SlotArray&& other) noexcept {
        m_count = std::exchange(other.m_count, 0);
        m_memory = std::move(other.m_memory);
        return *this;
    }

    std::size_t count() const noexcept { return m_count; }

    /// Appends `count` unset values.
    void grow(std::size_t count) noexcept { m_count += count; }

    /// The value of a slot below count(); a text is viewed and lives until another is set.
    SectionValue get(std::size_t slot) const noexcept {
        if (!m_memory || slot >= m_memory->kinds.size())
            return {};
        const Kind kind = m_memory->kinds[slot];
        const std::uint64_t payload = m_memory->payloads[slot];
        if (kind == Kind::plainText)
            return {kind, payload & longestText, m_memory->plainCharacters.data() + (payload >> lengthBits)};
        if (kind == Kind::text)
            return {kind, payload & longestText, m_memory->characters.data() + (payload >> lengthBits)};
        return {kind, payload};
    }

    /// Sets a slot below count(); a text is copied. Throws std::bad_alloc, and std::length_error for a text
    /// of 2^24 characters or more; the slot is then as it was.
    void set(std::size_t slot, const SectionValue& value) {
        if (!m_memory || slot >= m_memory->kinds.size())
            takeMemory();
        if (value.kind() == Kind::text)
            return setText(slot, value.text());
        if (value.kind() == Kind::plainText)
            return setText(slot, value.plainText());
        m_memory->payloads[slot] = value.payload();
        m_memory->kinds[slot] = value.kind();
    }

    /// Visits the texts that are not plain.
    template <typename Visitor>
    void forEachText(const Visitor& visit) const {
        if (!m_memory || m_memory->characters.empty())
            return;
        for (std::size_t slot = 0; slot < m_memory->kinds.size(); ++slot)
            if (m_memory->kinds[slot] == Kind::text)
                visit(get(slot).text());
    }

private:
    using Kind = SectionValue::Kind;

    /// In a slot the payload of a text is its place among the characters and its length.
    static constexpr int lengthBits = 24;
    static constexpr std::uint64_t longestText = (std::uint64_t{1} << lengthBits) - 1;

    template <typename Text>
    void setText(std::size_t slot, Text text);
    void takeMemory();

    struct Memory {
        std::vector<std::uint64_t> payloads;
        std::vector<Kind> kinds;
        std::string plainCharacters; ///< Of all plain texts; one that is set anew leaves its old ones behind.
        std::wstring characters;     ///< Of all other texts, likewise.
    };

    std::size_t m_count;
    std::unique_ptr<Memory> m_memory; ///< Null while nothing is set: most arrays live only to be appended.
};

} // namespace rasterplan
