#include "Run.h"
#include "base/PathText.h"

#include <iostream>

#include <windows.h>

namespace {

// A console shows bytes in its own code page; the program speaks UTF-8.
class Utf8Console {
public:
    Utf8Console()
        : m_before(GetConsoleOutputCP()) {
        SetConsoleOutputCP(CP_UTF8);
    }
    ~Utf8Console() { SetConsoleOutputCP(m_before); }
    Utf8Console(const Utf8Console&) = delete;
    Utf8Console& operator=(const Utf8Console&) = delete;

private:
    UINT m_before;
};

} // namespace

// The narrow arguments of main lack every character that the system's code page lacks.
int wmain(int count, wchar_t** wideArguments) {
    const Utf8Console console;
    return rasterplan_tool::run(
        [count, wideArguments] {
            std::vector<std::string> arguments;
            for (int i = 1; i < count; ++i)
                arguments.push_back(rasterplan_tool::utf8FromPath(wideArguments[i]));
            return arguments;
        },
        {std::cout, std::cerr});
}
