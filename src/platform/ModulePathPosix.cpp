#include "platform/ModulePath.h"

#include <dlfcn.h>

#include <charconv>
#include <cstdint>
#include <fstream>
#include <string>

namespace rasterplan {
namespace {

/// The file mapped at an address, by the system's list of mappings: absolute, whatever name the loader was
/// given and wherever the process has gone since.
std::filesystem::path mappedFile(std::uintptr_t address) {
    std::ifstream maps("/proc/self/maps");
    maps.exceptions(std::ios::badbit); // or getline would turn "out of memory" into the end of the list
    for (std::string line; std::getline(maps, line);) {
        std::uintptr_t begin = 0;
        std::uintptr_t end = 0;
        const char* const last = line.data() + line.size();
        const auto dash = std::from_chars(line.data(), last, begin, 16).ptr;
        if (dash == last || std::from_chars(dash + 1, last, end, 16).ec != std::errc())
            continue;
        const auto path = line.find('/');
        if (begin <= address && address < end && path != std::string::npos)
            return line.substr(path);
    }
    return {};
}

} // namespace

std::filesystem::path modulePath() {
    const auto address = reinterpret_cast<std::uintptr_t>(&modulePath);
    Dl_info module{};
    if (dladdr(reinterpret_cast<const void*>(&modulePath), &module) != 0 && module.dli_fname &&
        module.dli_fname[0] == '/')
        return module.dli_fname;
    return mappedFile(address);
}

} // namespace rasterplan
