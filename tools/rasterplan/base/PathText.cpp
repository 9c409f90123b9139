#include "base/PathText.h"

#include "base/Failure.h"
#include "base/VisibleText.h"

#include <new>

namespace fs = std::filesystem;

namespace rasterplan_tool {
namespace {

// A POSIX path is any bytes; a drawing's text is Unicode.
[[noreturn]] void failNotUnicode(const std::string& shown) {
    throw BadInput(shown + ": the path is not valid Unicode text, which a drawing cannot hold; rename the "
                           "folder or the file");
}

std::string bytesOf(const std::u8string& text) {
    return {text.begin(), text.end()};
}

} // namespace

// The standard conversions between narrow and wide paths go through the process's locale; those of char8_t,
// char32_t and the system's own character do not.
fs::path pathFromUtf8(std::string_view text) {
    try {
        return fs::path(std::u8string(text.begin(), text.end()));
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception&) {
        failNotUnicode('"' + visible(text) + '"');
    }
}

std::string utf8FromPath(const fs::path& path) {
    wideFromPath(path); // the narrow text of a POSIX path is handed out unchecked
    return bytesOf(path.u8string());
}

std::wstring wideFromPath(const fs::path& path) {
    try {
        if constexpr (sizeof(wchar_t) == sizeof(char16_t)) {
            const std::u16string text = path.u16string();
            return {text.begin(), text.end()};
        } else {
            const std::u32string text = path.u32string();
            return {text.begin(), text.end()};
        }
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception&) {
        failNotUnicode(quoted(path));
    }
}

std::string shownText(const fs::path& path) {
    try {
        return visible(bytesOf(path.u8string()));
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception&) {
        return "(a path that is not Unicode text)";
    }
}

std::string quoted(const fs::path& path) {
    return '"' + shownText(path) + '"';
}

} // namespace rasterplan_tool
