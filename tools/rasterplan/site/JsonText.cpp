#include "site/JsonText.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <iterator>

namespace rasterplan_tool {
namespace {

constexpr std::size_t deepestNesting = 32;

// Reads a text and lets others see how far it has been read.
class TrackedIterator {
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = char;
    using difference_type = std::ptrdiff_t;
    using pointer = const char*;
    using reference = const char&;

    TrackedIterator(const char* position, const char*& furthest)
        : m_position(position)
        , m_furthest(&furthest) {}

    reference operator*() const { return *m_position; }
    TrackedIterator& operator++() {
        *m_furthest = ++m_position;
        return *this;
    }
    TrackedIterator operator++(int) {
        TrackedIterator before = *this;
        ++*this;
        return before;
    }
    bool operator==(const TrackedIterator& other) const { return m_position == other.m_position; }
    bool operator!=(const TrackedIterator& other) const { return !(*this == other); }

private:
    const char* m_position;
    const char** m_furthest;
};

// The parser tells the line of syntax errors only; this handler keeps the line of every value.
class TreeBuilder : public nlohmann::json_sax<nlohmann::json> {
public:
    TreeBuilder(std::string_view text, const char*& furthest)
        : m_text(text)
        , m_counted(text.data())
        , m_furthest(furthest) {}

    JsonValue takeRoot() { return std::move(m_root); }

    bool null() override { return store(nullptr); }
    bool boolean(bool value) override { return store(value); }
    bool number_integer(number_integer_t value) override { return store(static_cast<double>(value)); }
    bool number_unsigned(number_unsigned_t value) override { return store(static_cast<double>(value)); }
    bool number_float(number_float_t value, const string_t&) override { return store(value); }
    bool string(string_t& value) override { return store(std::move(value)); }
    bool binary(binary_t&) override { return false; }
    bool start_array(std::size_t) override { return open(JsonValue::Array()); }
    bool start_object(std::size_t) override { return open(JsonValue::Object()); }
    bool end_array() override { return close(); }
    bool end_object() override { return close(); }

    bool key(string_t& name) override {
        auto& members = std::get<JsonValue::Object>(m_open.back()->content);
        members.push_back({std::move(name), currentLine(), {}});
        return true;
    }

    // The parser's own words are those of a grammar. `read` counts the end of the text as a byte.
    bool parse_error(std::size_t read, const std::string&, const nlohmann::json::exception&) override {
        throw JsonError(explainMistake(m_text, std::min(read - 1, m_text.size())));
    }

private:
    // A number is known to have ended only when the character behind it has been read, and that may be a line
    // end. No value begins with its last character's line end, so that character never counts.
    std::size_t currentLine() {
        if (m_furthest != m_counted) {
            m_line += static_cast<std::size_t>(std::count(m_counted, m_furthest - 1, '\n'));
            m_counted = m_furthest - 1;
        }
        return m_line;
    }

    JsonValue& nextPlace() {
        if (m_open.empty())
            return m_root;
        if (auto* const elements = std::get_if<JsonValue::Array>(&m_open.back()->content))
            return elements->emplace_back();
        return std::get<JsonValue::Object>(m_open.back()->content).back().value;
    }

    template <typename Content>
    bool store(Content&& content) {
        JsonValue& value = nextPlace();
        value.line = currentLine();
        value.content = std::forward<Content>(content);
        return true;
    }

    template <typename Content>
    bool open(Content&& content) {
        if (m_open.size() == deepestNesting) {
            const auto bracket = static_cast<std::size_t>(m_furthest - 1 - m_text.data());
            throw JsonError({explainMistake(m_text, bracket).place,
                             "the values are nested too deeply; no site needs more than "
                             "six levels"});
        }
        JsonValue& value = nextPlace();
        value.line = currentLine();
        value.content = std::forward<Content>(content);
        m_open.push_back(&value);
        return true;
    }

    bool close() {
        m_open.pop_back();
        return true;
    }

    JsonValue m_root;
    std::vector<JsonValue*> m_open; // only the innermost container grows, so these stay valid
    std::string_view m_text;
    const char* m_counted;
    const char*& m_furthest;
    std::size_t m_line = 1;
};

} // namespace

std::string_view JsonValue::kind() const {
    static constexpr std::array<std::string_view, 6> kinds{"null",   "true or false", "a number",
                                                           "a text", "a list",        "an object"};
    static_assert(std::variant_size_v<decltype(content)> == kinds.size());
    return kinds[content.index()];
}

JsonValue parseJson(std::string_view text) {
    const char* const begin = text.data();
    const char* furthest = begin;
    TreeBuilder builder(text, furthest);
    nlohmann::json::sax_parse(TrackedIterator(begin, furthest),
                              TrackedIterator(begin + text.size(), furthest), &builder);
    return builder.takeRoot();
}

} // namespace rasterplan_tool
