#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace rasterplan {

/// The lines of the template that are replaced by generated records.
enum class TopLevelKey : std::uint8_t {
    HeaderExtMin,
    HeaderExtMax,
    HeaderHandSeed,
    HeaderInsUnits,
    ClassImageDef,
    ClassImageDefReactor,
    ClassImage,
    TableVPort,
    ObjectDictionary,
    ObjectImageDefReactor,
    ObjectImageDef,
    EntityLine,
    EntityImage
};

/// Their texts, in the order of the enumerators.
inline constexpr std::array<std::string_view, 13> topLevelKeyTexts{
    "#VEXO_HEADER_EXTMIN#",     "#VEXO_HEADER_EXTMAX#",
    "#VEXO_HEADER_HANDSEED#",   "#VEXO_HEADER_INSUNITS#",
    "#VEXO_CLASS_IMAGEDEF#",    "#VEXO_CLASS_IMAGEDEFREACTOR#",
    "#VEXO_CLASS_IMAGE#",       "#VEXO_TABLE_VPORT#",
    "#VEXO_OBJECT_DICTIONARY#", "#VEXO_OBJECT_IMAGEDEFREACTOR#",
    "#VEXO_OBJECT_IMAGEDEF#",   "#VEXO_ENTITY_LINE#",
    "#VEXO_ENTITY_IMAGE#",
};

/// The key whose text is exactly `text`.
constexpr std::optional<TopLevelKey> findTopLevelKey(std::string_view text) noexcept {
    for (std::size_t i = 0; i < topLevelKeyTexts.size(); ++i)
        if (topLevelKeyTexts[i] == text)
            return static_cast<TopLevelKey>(i);
    return std::nullopt;
}

/// The key of the section with this number (from 1) among those of a top-level key, the number directly
/// behind the closing '#'. Throws std::bad_alloc.
inline std::string makeInstanceKey(TopLevelKey key, std::int32_t number) {
    return std::string(topLevelKeyTexts[static_cast<std::size_t>(key)]) + std::to_string(number);
}

} // namespace rasterplan
