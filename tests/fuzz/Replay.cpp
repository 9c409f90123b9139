// Gives the files of a folder to a fuzzer, one after the other: what was found once stays tested in every
// build. Usage: replay_NAME FOLDER

#include "fuzz/Fuzzing.h"
#include "support/TestFolder.h"

#include <algorithm>
#include <vector>

int main(int count, char** arguments) {
    using namespace rasterplan;
    fuzz::demand(count == 2, "which folder?");
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(arguments[1]))
        files.push_back(entry.path());
    fuzz::demand(!files.empty(), "no input in that folder");
    std::sort(files.begin(), files.end());
    for (const std::filesystem::path& file : files) {
        std::printf("%s\n", test::utf8FromPath(file.filename()).c_str());
        std::fflush(stdout);
        const std::string bytes = test::readBytes(file);
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    }
    return 0;
}
