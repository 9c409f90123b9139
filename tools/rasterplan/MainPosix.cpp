#include "Run.h"

#include <array>
#include <csignal>
#include <iostream>

#include <fcntl.h>

namespace {

struct StandardFile {
    int descriptor;
    int otherWay; // how to open a stand-in that fails where the file itself would be used
};

constexpr std::array<StandardFile, 3> standardFiles{{{0, O_WRONLY}, {1, O_RDONLY}, {2, O_RDONLY}}};

// Where the caller closed one, the next file opened would take its number, and messages would go into the
// drawing.
void occupyStandardFiles() {
    for (const StandardFile& file : standardFiles)
        if (fcntl(file.descriptor, F_GETFD) == -1)
            static_cast<void>(open("/dev/null", file.otherWay)); // takes the lowest number that is free
}

} // namespace

int main(int count, char** arguments) {
    occupyStandardFiles();
    // A write beyond the limit of file sizes shall fail, not end the program.
    static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
    return rasterplan_tool::run(
        [count, arguments] {
            return std::vector<std::string>(arguments + (count > 0 ? 1 : 0), arguments + count);
        },
        {std::cout, std::cerr});
}
