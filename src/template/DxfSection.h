#pragma once

#include "base/FormatFixed.h"
#include "base/HandleText.h"
#include "template/OutputBuffer.h"
#include "template/Pair.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <utility>
#include <variant>

namespace rasterplan {

/// The constant texts of a record, made at compile time from the pairs of its section: what stands before
/// each value, and behind the last one.
template <typename Section>
struct RecordLayout {
    static constexpr auto pairs = Section::pairs();
    static_assert(std::all_of(pairs.begin(), pairs.end(),
                              [](const auto& pair) { return pair.isComplete(); }));

    static constexpr auto valueCount = static_cast<std::size_t>(
        std::count_if(pairs.begin(), pairs.end(), [](const auto& pair) { return !pair.value.isConstant(); }));
    static constexpr std::size_t capacity = 64 * pairs.size();

    std::array<char, capacity> text{};
    std::array<std::size_t, valueCount + 2> ends{}; ///< Of the texts; the first is 0.
    std::array<std::size_t, valueCount> places{};   ///< Of the values among the pairs.

    std::array<char, capacity> unfilled{}; ///< The record of a section that nobody fills.
    std::size_t unfilledSize = 0;

    consteval RecordLayout() {
        const auto append = [](std::array<char, capacity>& out, std::size_t& size, std::string_view line) {
            size = static_cast<std::size_t>(std::copy(line.begin(), line.end(), &out[size]) - out.data());
        };
        std::size_t size = 0;
        std::size_t value = 0;
        for (std::size_t i = 0; i < pairs.size(); ++i) {
            append(text, size, pairs[i].code);
            append(text, size, lineEnd);
            if (const auto* const constant = std::get_if<std::string_view>(&pairs[i].value.source)) {
                append(text, size, *constant);
            } else {
                places[value++] = i;
                ends[value] = size;
            }
            append(text, size, lineEnd);
            for (const std::string_view line : {pairs[i].code, lineEnd, pairs[i].value.unfilled, lineEnd})
                append(unfilled, unfilledSize, line);
        }
        ends.back() = size;
    }
};

template <typename Section>
inline constexpr RecordLayout<Section> recordLayout;

/// One generated DXF record. `Section` derives from it, holds the values that differ from one record to the
/// next, and gives all pairs of lines in output order by a static function pairs(). A section lives while its
/// record is written.
template <typename Section>
class DxfSection {
public:
    /// Appends the record, each line ended by CR LF. Throws as OutputBuffer::appendText does.
    void render(OutputBuffer& out) const {
        renderPairs(out, std::make_index_sequence<RecordLayout<Section>::valueCount>());
    }

    /// Appends the record of a section that nobody fills.
    static void renderUnfilled(OutputBuffer& out) {
        constexpr const auto& layout = recordLayout<Section>;
        out.append({layout.unfilled.data(), layout.unfilledSize});
    }

protected:
    using Self = Section; // shortens the tables of pairs

private:
    template <std::size_t... Value>
    void renderPairs(OutputBuffer& out, std::index_sequence<Value...>) const {
        char* end = reserve(out);
        ((end = writeValue<Value>(writeText<Value>(end), out)), ...);
        out.commit(writeText<sizeof...(Value)>(end));
    }

    /// Room for the record without its texts of any length.
    static char* reserve(OutputBuffer& out) {
        using Layout = RecordLayout<Section>;
        return out.reserve(Layout::capacity + Layout::valueCount * ZelkBase::fixedTextCapacity);
    }

    template <std::size_t Part>
    static char* writeText(char* end) noexcept {
        constexpr const auto& layout = recordLayout<Section>;
        constexpr std::size_t size = layout.ends[Part + 1] - layout.ends[Part];
        std::memcpy(end, &layout.text[layout.ends[Part]], size);
        return end + size;
    }

    template <std::size_t Value>
    char* writeValue(char* end, OutputBuffer& out) const {
        static constexpr auto source =
            RecordLayout<Section>::pairs[recordLayout<Section>.places[Value]].value.source;
        return write(valueOf(std::get<source.index()>(source)), end, out);
    }

    template <typename Member>
    const Member& valueOf(Member Section::*member) const noexcept {
        return static_cast<const Section*>(this)->*member;
    }
    template <typename Triple>
    double valueOf(const Coordinate<Section, Triple>& coordinate) const noexcept {
        return valueOf(coordinate.triple).*coordinate.axis;
    }

    static char* write(Handle value, char* end, OutputBuffer&) noexcept {
        return ZelkBase::formatHandle(static_cast<std::uint32_t>(value), end);
    }
    static char* write(std::int32_t value, char* end, OutputBuffer&) noexcept {
        return ZelkBase::formatInteger(value, end);
    }
    static char* write(double value, char* end, OutputBuffer&) noexcept {
        return ZelkBase::formatFixed17(value, end);
    }
    static char* write(std::string_view text, char* end, OutputBuffer&) noexcept {
        assert(text.size() <= ZelkBase::fixedTextCapacity); // it is a short one
        return end + text.copy(end, text.size());
    }
    static char* write(std::wstring_view text, char* end, OutputBuffer& out) {
        out.commit(end);
        out.appendText(text);
        return reserve(out);
    }
};

} // namespace rasterplan
