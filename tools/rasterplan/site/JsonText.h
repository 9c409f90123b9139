#pragma once

#include "site/JsonMistake.h"

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace rasterplan_tool {

struct JsonMember;

/// One value of a JSON text, with the line it begins in: a message about it can point there.
struct JsonValue {
    using Array = std::vector<JsonValue>;
    using Object = std::vector<JsonMember>;

    std::size_t line = 1; ///< Counted from 1.
    std::variant<std::nullptr_t, bool, double, std::string, Array, Object> content;

    /// The content if it has this type, a null pointer otherwise.
    template <typename Type>
    const Type* as() const {
        return std::get_if<Type>(&content);
    }

    /// What the value is, with its article: "a number", "an object".
    std::string_view kind() const;
};

/// One member of an object. Members stand in the order of the text, equal names included.
struct JsonMember {
    std::string name;
    std::size_t line = 1; ///< The line of the name.
    JsonValue value;
};

/// The text is not JSON.
class JsonError : public std::runtime_error {
public:
    explicit JsonError(const JsonMistake& mistake)
        : std::runtime_error(mistake.text)
        , m_place(mistake.place) {}

    /// Where the mistake is seen.
    const JsonPlace& place() const noexcept { return m_place; }

private:
    JsonPlace m_place;
};

/// Reads a whole JSON text (UTF-8, with or without a byte order mark).
/// Throws JsonError; also for a number that no double can hold, and for values nested more than 32 deep.
JsonValue parseJson(std::string_view text);

} // namespace rasterplan_tool
