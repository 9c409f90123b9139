#include "base/Format.h"

#include "base/Error.h"

namespace ZelkBase {
namespace {

// The value of a decimal digit, or -1.
int digitValue(wchar_t character) noexcept {
    return character >= L'0' && character <= L'9' ? static_cast<int>(character - L'0') : -1;
}

// Whether the percent sign at `position` is the last of an even count of them.
bool isEscaped(std::wstring_view text, std::size_t position) noexcept {
    const std::size_t before = text.find_last_not_of(L'%', position);
    const std::size_t first = before == std::wstring_view::npos ? 0 : before + 1;
    return (position - first) % 2 == 1;
}

} // namespace

Text format(const Text& format, std::initializer_list<Text> arguments) {
    std::wstring text(format.view());
    for (std::size_t at = 0; (at = text.find(L"%k", at)) != std::wstring::npos && at + 4 <= text.size();) {
        const int tens = digitValue(text[at + 2]);
        const int ones = digitValue(text[at + 3]);
        if (isEscaped(text, at) || tens < 0 || ones < 0) {
            at += 2;
            continue;
        }
        const std::size_t number = 10 * static_cast<std::size_t>(tens) + static_cast<std::size_t>(ones);
        if (number < 1 || number > arguments.size())
            throw Error(L"Format string has invalid list of arguments");
        const std::wstring_view argument = arguments.begin()[number - 1].view();
        text.replace(at, 4, argument);
        at += argument.size();
    }
    return Text(text);
}

} // namespace ZelkBase
