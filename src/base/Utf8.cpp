#include "base/Utf8.h"

namespace ZelkBase {

void requireUtf8(std::wstring_view text) {
    char bytes[utf8Capacity];
    for (const wchar_t character : text)
        encodeUtf8(character, bytes);
}

void appendUtf8(std::string& out, std::wstring_view text) {
    for (const wchar_t character : text) {
        char bytes[utf8Capacity];
        out.append(bytes, encodeUtf8(character, bytes));
    }
}

std::string toUtf8(std::wstring_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    appendUtf8(bytes, text);
    return bytes;
}

} // namespace ZelkBase
