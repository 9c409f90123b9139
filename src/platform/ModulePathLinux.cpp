#include "platform/File.h"
#include "platform/ModulePath.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <string>
#include <string_view>
#include <system_error>

namespace rasterplan {
namespace {

// A part of the memory and, where it is that of a file, the file.
struct Mapping {
    std::uintptr_t begin = 0;
    std::uintptr_t end = 0;
    std::string_view path;
};

// One line of the system's list, "55d0-55e0 r-xp 0000 fe:01 1234   /folder/file".
Mapping parseMapping(std::string_view line) {
    const char* const last = line.data() + line.size();
    Mapping mapping;
    const char* const dash = std::from_chars(line.data(), last, mapping.begin, 16).ptr;
    if (dash != last)
        std::from_chars(dash + 1, last, mapping.end, 16);
    if (const auto path = line.find('/'); path != std::string_view::npos)
        mapping.path = line.substr(path);
    return mapping;
}

// The list shows a line feed in a path as "\012", and just so a backslash with these digits.
std::filesystem::path listedPath(std::string_view listed) {
    std::filesystem::path asListed = listed;
    std::error_code ignored;
    if (listed.find("\\012") == std::string_view::npos || exists(asListed.parent_path(), ignored))
        return asListed;
    std::string path(listed);
    for (std::size_t at = 0; (at = path.find("\\012", at)) != std::string::npos; ++at)
        path.replace(at, 4, 1, '\n');
    return path;
}

std::string readAll(std::FILE* file) {
    std::string text;
    std::array<char, 4096> block;
    while (const std::size_t size = std::fread(block.data(), 1, block.size(), file))
        text.append(block.data(), size);
    return text;
}

} // namespace

std::filesystem::path modulePath() {
    // The loader tells the name that it was given: a link, a path from a folder that was left since, or for a
    // program whatever its starter called it. The list of mappings tells the file.
    const File maps = openForReading("/proc/self/maps");
    if (!maps)
        return {};
    const std::string list = readAll(maps.get());
    const auto address = reinterpret_cast<std::uintptr_t>(&modulePath);
    for (std::string_view rest = list; !rest.empty();) {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
        const Mapping mapping = parseMapping(line);
        if (mapping.begin <= address && address < mapping.end)
            return listedPath(mapping.path);
    }
    return {};
}

} // namespace rasterplan
