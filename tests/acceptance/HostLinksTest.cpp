// The template lies beside the real file that holds the library's code. Links lead to that file, and a
// program may be told any name of its own.

#ifdef __linux__

#include "HostFolder.h"
#include "support/StructureWalk.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace rasterplan::test;
namespace fs = std::filesystem;

constexpr const char* hostName = "export_host";
const std::string libraryName = RASTERPLAN_LIBRARY_NAME;

constexpr const char* sceneOfOneImage = "drawing\n"
                                        "image 6 100  0 2 0  0 0 0  3 0 0  picture.png\n"
                                        "write3d\n";

void expectWholeDrawing(const HostRun& run, const fs::path& drawing) {
    EXPECT_EQ(run.status, 0) << run.err;
    ASSERT_EQ(run.out, "image Success\nwrite3d Success\n") << run.err;
    EXPECT_EQ(structureFindings(readBytes(drawing), framedImages(1)), std::vector<std::string>());
}

void expectWholeDrawing(const HostFolder& host, const std::string& program) {
    expectWholeDrawing(host.playBy(program, sceneOfOneImage), host.folder() / "drawing.dxf");
}

// Moves host, library and template to a folder below, as a user might install them.
void moveInto(const HostFolder& host, const std::string& name) {
    const fs::path folder = host.folder() / name;
    fs::create_directories(folder);
    for (const std::string& file : {std::string(hostName), libraryName})
        if (!file.empty())
            fs::rename(host.folder() / file, folder / file);
    fs::rename(host.templateFile(), folder / host.templateFile().filename());
}

} // namespace

TEST(HostLinks, LibraryReachedByALink) {
    if (libraryName.empty())
        GTEST_SKIP() << "the host holds the library's code itself";
    for (const bool absolute : {true, false}) {
        const HostFolder host(deliveredTemplate());
        moveInto(host, "Bücher und Pläne");
        const fs::path installed = fs::path("Bücher und Pläne") / libraryName;
        fs::copy_file(host.folder() / "Bücher und Pläne/export_host", host.folder() / hostName);
        fs::create_symlink(absolute ? host.folder().path() / installed : installed,
                           host.folder() / libraryName);
        expectWholeDrawing(host, "./export_host");
    }
}

TEST(HostLinks, HostReachedByALink) {
    const HostFolder host(deliveredTemplate());
    moveInto(host, "opt/pläne");
    fs::create_symlink("opt/pläne/export_host", host.folder() / "relative");
    expectWholeDrawing(host, "./relative");
    fs::create_symlink(host.folder() / "opt/pläne/export_host", host.folder() / "absolute");
    expectWholeDrawing(host, "\"$PWD/absolute\"");
    fs::create_symlink("absolute", host.folder() / "link to a link");
    expectWholeDrawing(host, "\"$PWD/link to a link\"");
    expectWholeDrawing(host, "PATH=\"$PWD:$PATH\" relative");
}

TEST(HostLinks, HostToldAnotherName) {
    const HostFolder host(deliveredTemplate());
    moveInto(host, "opt");
    for (const std::string name : {"/nowhere/at/all", "/usr/bin/sh", "plan", "./plan", "''"})
        expectWholeDrawing(host, "bash -c 'exec -a \"$0\" \"$@\"' " + name + " opt/export_host");
}

TEST(HostLinks, LibraryFromARelativeFolderThatIsLeft) {
    const HostFolder host(deliveredTemplate());
    create_directory(host.folder() / "elsewhere");
    for (const std::string program : {"LD_LIBRARY_PATH=. ./export_host", "elsewhere/../export_host"}) {
        const HostRun run = host.playBy(program, std::string("chdir elsewhere\n") + sceneOfOneImage);
        expectWholeDrawing(run, host.folder() / "elsewhere/drawing.dxf");
    }
}

TEST(HostLinks, FolderWithALineFeedOrWhatLooksLikeOne) {
    for (const std::string name : {"a name\nof three\nlines", "two\\012lines"}) {
        const HostFolder host(deliveredTemplate());
        moveInto(host, name);
        expectWholeDrawing(host, '"' + name + "/export_host\"");
    }
}

TEST(HostLinks, FileDeletedWhileItRuns) {
    const HostFolder host(deliveredTemplate());
    // The pipe opens when the host reads its scene: it has been loaded by then.
    std::string script = "mkfifo pipe\n"
                         "./export_host pipe &\n"
                         "exec 3>pipe\n"
                         "rm ";
    script += libraryName.empty() ? hostName : libraryName;
    script += "\ncat \"$1\" >&3\n"
              "exec 3>&-\n"
              "wait $!\n";
    writeBytes(host.folder() / "replace.sh", script);
    expectWholeDrawing(host, "sh replace.sh");
}

#endif
