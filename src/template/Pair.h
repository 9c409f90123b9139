#pragma once

#include "math/MathPoint3d.h"
#include "math/MathVector3d.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <variant>

namespace rasterplan {

/// The number of a DXF handle; its text is upper-case hexadecimal.
enum class Handle : std::uint32_t {};

/// One coordinate of a member of a section.
template <typename Section, typename Triple>
struct Coordinate {
    const Triple Section::*triple;
    double Triple::*axis;
};
template <typename Section, typename Triple>
consteval auto x(const Triple Section::*triple) {
    return Coordinate<Section, Triple>{triple, &Triple::x};
}
template <typename Section, typename Triple>
consteval auto y(const Triple Section::*triple) {
    return Coordinate<Section, Triple>{triple, &Triple::y};
}
template <typename Section, typename Triple>
consteval auto z(const Triple Section::*triple) {
    return Coordinate<Section, Triple>{triple, &Triple::z};
}

/// What the value line of a pair says: a constant ASCII text, or a member of the section; and what it says in
/// a record that nobody fills.
template <typename Section>
struct PairValue {
    std::variant<std::string_view, Handle Section::*, const Handle Section::*, const std::int32_t Section::*,
                 const double Section::*, Coordinate<Section, MathPoint3d>, Coordinate<Section, MathVector3d>,
                 const std::string_view Section::*, const std::wstring_view Section::*>
        source;
    std::string_view unfilled;

    consteval PairValue(const char* constant)
        : PairValue(constant, constant) {}
    template <typename Source>
    consteval PairValue(Source source_, const char* unfilled_ = "")
        : source(source_)
        , unfilled(unfilled_) {}

    constexpr bool isConstant() const noexcept { return source.index() == 0; }
};

/// Two lines of a record: the group code and its value, and the keys that name the two lines.
template <typename Section>
struct Pair {
    std::string_view code;
    PairValue<Section> value;
    std::wstring_view codeKey;
    std::wstring_view valueKey;

    /// Whether nothing is missing and nothing stands in another's place.
    constexpr bool isComplete() const noexcept {
        const auto isKey = [](std::wstring_view key) {
            return key.size() > 7 && key.starts_with(L"#VEXO_") && key.ends_with(L'#');
        };
        return !code.empty() && code.find_first_not_of("0123456789") == code.npos && isKey(codeKey) &&
               isKey(valueKey);
    }
};

} // namespace rasterplan
