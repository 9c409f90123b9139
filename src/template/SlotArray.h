#pragma once

#include "template/SectionValue.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory_resource>
#include <string_view>

namespace rasterplan {

/// The values of a section that differ from its table: nine bytes each, in one block of memory that is taken
/// when the first value is set, because a drawing holds some seventy values per image.
class SlotArray {
public:
    /// `count` values, all unset.
    explicit SlotArray(std::uint32_t count = 0) noexcept
        : m_count(count) {}
    ~SlotArray();

    SlotArray(SlotArray&& other) noexcept;
    SlotArray& operator=(SlotArray&& other) noexcept;

    /// Takes memory from `memory`, which must outlive this object, if no value has been set yet.
    void takeMemoryFrom(std::pmr::memory_resource& memory) noexcept;

    std::uint32_t count() const noexcept { return m_count; }

    /// The value of a slot below count(); a text is viewed and lives until the slot is set anew.
    SectionValue get(std::uint32_t slot) const noexcept {
        if (!m_payloads)
            return {};
        const std::uint64_t payload = m_payloads[slot];
        switch (kinds()[slot]) {
        case Kind::real:
            return std::bit_cast<double>(payload);
        case Kind::integer:
            return integerIn(payload);
        case Kind::handle:
            return Handle{integerIn(payload)};
        case Kind::text:
            return std::wstring_view(textIn(payload)->characters(), textIn(payload)->length);
        case Kind::unset:
            break;
        }
        return {};
    }

    /// Sets a slot below count(); a text is copied. Throws std::bad_alloc, and the slot is then as it was.
    void set(std::uint32_t slot, const SectionValue& value) {
        if (!m_payloads)
            takeBlock();
        const std::uint64_t payload = payloadOf(value);
        dropText(slot);
        m_payloads[slot] = payload;
        kinds()[slot] = value.kind();
        m_mayHoldText |= value.kind() == Kind::text;
    }

private:
    using Kind = SectionValue::Kind;

    /// A text in its slot: its length, and behind it the characters.
    struct Text {
        std::size_t length;

        static std::size_t sizeOf(std::size_t length) noexcept {
            return sizeof(Text) + length * sizeof(wchar_t);
        }
        wchar_t* characters() noexcept { return reinterpret_cast<wchar_t*>(this + 1); }
    };
    static Text* textIn(std::uint64_t payload) noexcept {
        return reinterpret_cast<Text*>(static_cast<std::uintptr_t>(payload));
    }
    static std::int32_t integerIn(std::uint64_t payload) noexcept {
        return static_cast<std::int32_t>(static_cast<std::uint32_t>(payload));
    }

    std::size_t blockSize() const noexcept { return m_count * (sizeof(std::uint64_t) + sizeof(Kind)); }
    Kind* kinds() const noexcept { return reinterpret_cast<Kind*>(m_payloads + m_count); }
    std::uint64_t payloadOf(const SectionValue& value) {
        switch (value.kind()) {
        case Kind::real:
            return std::bit_cast<std::uint64_t>(value.real());
        case Kind::integer:
            return static_cast<std::uint32_t>(value.integer());
        case Kind::handle:
            return static_cast<std::uint32_t>(value.handle().number);
        case Kind::text:
            return reinterpret_cast<std::uintptr_t>(copyOf(value.text()));
        case Kind::unset:
            break;
        }
        return 0;
    }
    void dropText(std::uint32_t slot) noexcept {
        if (kinds()[slot] == Kind::text)
            free(textIn(m_payloads[slot]));
    }
    void takeBlock();
    Text* copyOf(std::wstring_view characters);
    void free(Text* text) noexcept;

    std::pmr::memory_resource* m_memory = std::pmr::new_delete_resource();
    std::uint64_t* m_payloads =
        nullptr; ///< The payloads, and behind them the kinds; null while nothing is set.
    std::uint32_t m_count;
    bool m_mayHoldText = false;
};

} // namespace rasterplan
