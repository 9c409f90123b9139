#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace rasterplan {

/// The lines of the template that are replaced by generated records.
enum class TopLevelKey : std::uint8_t {
    headerExtMin,
    headerExtMax,
    headerHandSeed,
    headerInsUnits,
    classImageDef,
    classImageDefReactor,
    classImage,
    tableVPort,
    objectDictionary,
    objectImageDefReactor,
    objectImageDef,
    entityLine,
    entityImage
};

/// Their texts, in the order of the enumerators.
inline constexpr std::array<std::wstring_view, 13> topLevelKeyTexts{
    L"#VEXO_HEADER_EXTMIN#",     L"#VEXO_HEADER_EXTMAX#",
    L"#VEXO_HEADER_HANDSEED#",   L"#VEXO_HEADER_INSUNITS#",
    L"#VEXO_CLASS_IMAGEDEF#",    L"#VEXO_CLASS_IMAGEDEFREACTOR#",
    L"#VEXO_CLASS_IMAGE#",       L"#VEXO_TABLE_VPORT#",
    L"#VEXO_OBJECT_DICTIONARY#", L"#VEXO_OBJECT_IMAGEDEFREACTOR#",
    L"#VEXO_OBJECT_IMAGEDEF#",   L"#VEXO_ENTITY_LINE#",
    L"#VEXO_ENTITY_IMAGE#",
};

/// The text of `key`.
constexpr std::wstring_view textOf(TopLevelKey key) noexcept {
    return topLevelKeyTexts[static_cast<std::size_t>(key)];
}

/// The key whose text is exactly `text`.
constexpr std::optional<TopLevelKey> findTopLevelKey(std::wstring_view text) noexcept {
    for (std::size_t i = 0; i < topLevelKeyTexts.size(); ++i)
        if (topLevelKeyTexts[i] == text)
            return static_cast<TopLevelKey>(i);
    return std::nullopt;
}

} // namespace rasterplan
