#include "site/JsonMistake.h"

#include "base/VisibleText.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <vector>

namespace rasterplan_tool {
namespace {

constexpr std::string_view jsonBlanks = " \t\r\n";
constexpr std::string_view marks = "{}[],:";
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

// A word is what stands between jsonBlanks and marks: a number, or whatever the user took for one.
enum class Kind { None, Mark, Text, Word };

constexpr std::string_view notUtf8 = "the file is not UTF-8; save it as UTF-8 in the editor";

bool isBeyondAscii(char c) {
    return static_cast<unsigned char>(c) >= 0x80U;
}

// Whether a byte goes on with the character of the one before.
bool isContinuation(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

struct Token {
    Kind kind = Kind::None;
    std::string_view text;
    bool isName = false; // a text before whose value a colon is due

    bool isMark(std::string_view which) const {
        return kind == Kind::Mark && which.find(text) != std::string_view::npos;
    }
    bool beginsValue() const { return kind == Kind::Text || kind == Kind::Word || isMark("{["); }
    bool endsValue() const { return (kind == Kind::Text && !isName) || kind == Kind::Word || isMark("}]"); }
    bool isUnclosed() const { return kind == Kind::Text && (text.size() == 1 || text.back() != '"'); }
    bool isNoValue() const { return kind == Kind::Word && !nlohmann::json::accept(text); }
    bool isNumber() const {
        constexpr std::string_view beginnings = "0123456789+-.";
        return kind == Kind::Word && beginnings.find(text.front()) != std::string_view::npos;
    }
};

std::size_t endOfText(std::string_view text, std::size_t begin) {
    for (std::size_t i = begin + 1; i < text.size() && text[i] != '\n'; ++i) {
        if (text[i] == '"')
            return i + 1;
        i += text[i] == '\\' ? 1 : 0;
    }
    return std::min(text.find('\n', begin), text.size());
}

Token tokenAt(std::string_view text, std::size_t begin) {
    if (begin == text.size())
        return {};
    if (marks.find(text[begin]) != std::string_view::npos)
        return {Kind::Mark, text.substr(begin, 1)};
    if (text[begin] == '"')
        return {Kind::Text, text.substr(begin, endOfText(text, begin) - begin)};
    std::size_t end = begin;
    while (end < text.size() && jsonBlanks.find(text[end]) == std::string_view::npos &&
           marks.find(text[end]) == std::string_view::npos && text[end] != '"')
        ++end;
    return {Kind::Word, text.substr(begin, end - begin)};
}

// Goes through a text up to the token in which the parser stopped.
class Scan {
public:
    Scan(std::string_view text, std::size_t offset)
        : m_text(text) {
        std::size_t begin = text.starts_with(byteOrderMark) ? byteOrderMark.size() : 0;
        for (;;) {
            begin = std::min(text.find_first_not_of(jsonBlanks, begin), text.size());
            wrong = tokenAt(text, begin);
            wrong.isName = wrong.kind == Kind::Text && open() == '{' && before.isMark("{,");
            const std::size_t end = begin + wrong.text.size();
            // What is cut off is known as such by the character behind it.
            if (end > offset || begin == text.size() ||
                (end == offset && (wrong.isUnclosed() || wrong.isNoValue())))
                break;
            pass();
            begin = end;
        }
        m_begin = begin;
    }

    // The innermost bracket that is open; 0 where none is.
    char open() const { return m_open.empty() ? '\0' : m_open.back(); }

    std::size_t begin() const { return m_begin; }

    JsonPlace place(std::size_t offset) const {
        const std::string_view read = m_text.substr(0, offset);
        const std::size_t lineBegin = read.rfind('\n') + 1; // 0 where there is none
        const std::string_view line = read.substr(lineBegin);
        const auto characters =
            line.size() - static_cast<std::size_t>(std::count_if(line.begin(), line.end(), isContinuation));
        const bool hasMark = lineBegin == 0 && line.starts_with(byteOrderMark);
        return {1 + static_cast<std::size_t>(std::count(read.begin(), read.end(), '\n')),
                1 + characters - (hasMark ? 1 : 0), m_open.size() < 2 ? 0 : m_element};
    }

    Token wrong;
    Token before;       // the one before it
    Token secondBefore; // and before that

private:
    void pass() {
        if (wrong.isMark("{[")) {
            if (m_open.size() == 1)
                m_element = 0;
            m_element += m_open.size() == 2 ? 1 : 0;
            m_open.push_back(wrong.text.front());
        } else if (wrong.isMark("}]") && !m_open.empty()) {
            m_open.pop_back();
        }
        secondBefore = before;
        before = wrong;
    }

    std::string_view m_text;
    std::vector<char> m_open;
    std::size_t m_element = 0;
    std::size_t m_begin = 0;
};

std::string shown(std::string_view text) {
    constexpr std::size_t longest = 40;
    std::size_t size = std::min(text.size(), longest);
    while (size < text.size() && isContinuation(text[size]))
        ++size; // a character stays whole
    return visible(text.substr(0, size)) + (size < text.size() ? "..." : "");
}

// What stops a text: `read` is its beginning up to the character that is wrong, which `stop` is.
std::string textMistake(std::string_view read, char stop) {
    constexpr std::string_view tab = "\t";
    if (stop == '\n' || stop == '\r')
        return "a text begins before here and does not end in its line; close it with a quotation mark";
    if (isBeyondAscii(stop) || isBeyondAscii(read.back()))
        return std::string(notUtf8);
    if (read.find('\\') != std::string_view::npos)
        return "a backslash in a text of JSON is written \\\\, or / in its place in a path; correct it";
    return std::string("a text holds ") + (stop == tab.front() ? "a tab" : "a control character") +
           "; take it out";
}

std::string endMistake(const Scan& scan) {
    if (scan.before.kind == Kind::None)
        return "there is nothing in it; write {\"images\": [...]}";
    return std::string("it ends too early: ") + (scan.open() == '{' ? "} is" : "] is") +
           " missing; write the rest";
}

std::string wordMistake(const Token& word, bool isName) {
    // The first bytes of quotation marks that word processors set.
    constexpr std::array<std::string_view, 6> curled{"\xE2\x80\x9C", "\xE2\x80\x9D", "\xE2\x80\x9E",
                                                     "\xE2\x80\x98", "\xE2\x80\x99", "'"};
    const std::string name = shown(word.text);
    if (word.text.starts_with("//") || word.text.starts_with("/*") || word.text.starts_with('#'))
        return "JSON has no comments; take it out, or make it a field such as \"_comment\": \"...\"";
    if (std::any_of(curled.begin(), curled.end(), [&](auto mark) { return word.text.starts_with(mark); }))
        return "texts stand in straight quotation marks; write \" in place of what begins " + name;
    if (word.text.find('\0') != std::string_view::npos || word.text.starts_with("\xFF\xFE") ||
        word.text.starts_with("\xFE\xFF"))
        return std::string(notUtf8);
    if (word.isNumber()) {
        return name + " is no number that fits; write digits, and others only behind a point, such as 0.5 "
                      "or -12.25";
    }
    if (isName)
        return "a name stands in quotation marks; write \"" + name + '"';
    return name + " is no value; write a number, true, false or null, and every text in quotation marks";
}

std::string tokenMistake(const Scan& scan) {
    const Token& wrong = scan.wrong;
    const Token& before = scan.before;
    const std::string name = shown(wrong.text);
    if (scan.open() == '\0' && before.kind != Kind::None)
        return "there is more behind the end: " + name + "; take it out, or a bracket before it";
    if (scan.open() == '{' && before.isMark(",") && wrong.isNumber() && scan.secondBefore.isNumber()) {
        const std::string number = shown(scan.secondBefore.text) + '.' + name;
        return "a number has a point and no comma; write " + number;
    }
    if (wrong.isNoValue())
        return wordMistake(wrong, scan.open() == '{' && before.isMark("{,"));
    if (before.isName && !wrong.isMark(":"))
        return "a colon is missing behind the name " + shown(before.text) + "; write : before " + name;
    if (before.endsValue() && wrong.beginsValue())
        return "a comma is missing before " + name + "; write one";
    if ((before.isMark(",") && wrong.isMark(",}]")) || (before.isMark("[{") && wrong.isMark(",")))
        return "there is a comma too many before " + name + "; take it out";
    if (wrong.isMark("}]"))
        return before.isMark(":") ? "a value is missing before " + name + "; write it"
                                  : name + " closes what another bracket opened; write " +
                                        (scan.open() == '{' ? "} here" : "] here");
    if (scan.open() == '{' && before.isMark("{,"))
        return "a name in quotation marks is missing before " + name + "; write it, such as \"unit\"";
    return name + " is not expected here; take it out, or write what is missing before it";
}

} // namespace

JsonMistake explainMistake(std::string_view text, std::size_t offset) {
    const Scan scan(text, offset);
    const Token& wrong = scan.wrong;
    if (wrong.kind == Kind::None)
        return {scan.place(scan.begin()), endMistake(scan)};
    if (wrong.isUnclosed() || (wrong.kind == Kind::Text && offset + 1 < scan.begin() + wrong.text.size())) {
        const char stop = offset < text.size() ? text[offset] : '\n';
        return {scan.place(offset), textMistake(text.substr(scan.begin(), offset - scan.begin()), stop)};
    }
    return {scan.place(scan.begin()), tokenMistake(scan)};
}

} // namespace rasterplan_tool
