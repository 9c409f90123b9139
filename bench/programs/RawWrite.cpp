// What the system takes for the bytes alone: so many of them, in blocks of the library's size. They are the
// same block over and over, because every writer's block is warm when it is written, and the system does not
// look at what it says.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("usage: raw_write BYTES OUTPUT\n", stderr);
        return 2;
    }
    std::FILE* const output = std::fopen(argv[2], "wb");
    if (!output)
        return 1;
    const std::vector<char> block(65536, '0');
    for (std::size_t left = std::strtoull(argv[1], nullptr, 10); left > 0;) {
        const std::size_t size = std::min(left, block.size());
        if (std::fwrite(block.data(), 1, size, output) != size)
            return 1;
        left -= size;
    }
    return std::fclose(output) == 0 ? 0 : 1;
}
