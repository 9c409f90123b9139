#pragma once

#include <string_view>

namespace ZelkBase {

/// The last component of a path, stem and extension. Both '/' and '\' separate and a drive such as "D:" is
/// not part of the name, on every system alike, because a drawing is opened on another one. Empty behind a
/// trailing separator.
constexpr std::wstring_view fileNameOf(std::wstring_view path) noexcept {
    const auto isLetter = [](wchar_t c) { return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z'); };
    if (path.size() >= 2 && path[1] == L':' && isLetter(path[0]))
        path.remove_prefix(2);
    std::size_t begin = path.size();
    while (begin > 0 && path[begin - 1] != L'/' && path[begin - 1] != L'\\')
        --begin;
    return path.substr(begin);
}

} // namespace ZelkBase
