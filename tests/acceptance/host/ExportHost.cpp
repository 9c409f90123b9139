// A host as small as they get: plays the scenes whose files it is given and prints what the library answers.
// Status 0 whatever that is; 2 when a scene cannot be played.

#include "host/Scene.h"
#include "support/TestFolder.h"

#include <exception>
#include <iostream>

namespace {

using rasterplan::test::playScene;
using rasterplan::test::readBytes;

int play(const std::filesystem::path& scene) {
    try {
        playScene(readBytes(scene), "drawing.dxf", std::cout);
        return 0;
    } catch (const std::exception& e) {
        std::cerr << e.what() << '\n';
        return 2;
    }
}

} // namespace

#ifdef _WIN32
int wmain(int count, wchar_t** arguments) {
#else
int main(int count, char** arguments) {
#endif
    int status = 0;
    for (int i = 1; i < count && status == 0; ++i)
        status = play(arguments[i]);
    return status;
}
