// Where the library may lie, for a host that loads it by its path.

#include "LibraryCopy.h"
#include "LoadedLibrary.h"
#include "support/TestFolder.h"
#include "support/WideText.h"

#include <gtest/gtest.h>

#include <RasterPlanWriter/RasterPlanWriter.h>

#include <cstdio>

using namespace rasterplan::test;

namespace {

// Loads the library from a folder, writes a drawing and gives the result.
int resultIn(const std::wstring& folder, const std::filesystem::path& output) {
    const LibraryCopy copy(folder);
    const LoadedLibrary library(copy.library());
    return library.writeDrawing(output.c_str());
}

// The length of the path of a folder in which the library's own path has the given length.
std::size_t folderForLibraryPath(std::size_t length) {
    return length - std::wstring(L"\\RasterPlanWriter.dll").size();
}

} // namespace

TEST(LibraryFolder, MayHoldUmlautsBlanksAndCjkLetters) {
    const TestFolder test;
    const std::wstring base = test.path().wstring();
    for (const char* name :
         {"Größe und Maß", "図面 폴더 文件", "ÄÖÜ äöü ß", "Ω plan é", "one\xF0\x9F\x8F\xA0two"})
        EXPECT_EQ(resultIn(base + L'\\' + wideTextOf(name), test / "out.dxf"), RasterPlanWriter::Success)
            << name;
}

TEST(LibraryFolder, IsNotTheHostsNorTheCurrentOne) {
    const TestFolder test;
    const LibraryCopy copy((test / "library").wstring());
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::create_directory(test / "elsewhere");
    const LoadedLibrary library(copy.library());
    std::filesystem::current_path(test / "elsewhere");
    const int result = library.writeDrawing(L"here.dxf");
    std::filesystem::current_path(before);
    EXPECT_EQ(result, RasterPlanWriter::Success);
    EXPECT_TRUE(std::filesystem::exists(test / "elsewhere/here.dxf"));
}

TEST(LibraryFolder, WithoutATemplateGivesCannotOpenTemplateWhateverLiesElsewhere) {
    const TestFolder test;
    const LibraryCopy copy((test / "library").wstring());
    const LibraryCopy other((test / "current").wstring());
    ASSERT_TRUE(DeleteFileW(copy.templateFile().c_str()));
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(test / "current");
    const LoadedLibrary library(copy.library());
    const int result = library.writeDrawing((test / "out.dxf").c_str());
    std::filesystem::current_path(before);
    EXPECT_EQ(result, RasterPlanWriter::CannotOpenTemplate);
}

TEST(LibraryFolder, MayBeAsLongAsSystemPathsAre) {
    const TestFolder test;
    const std::size_t templateName = std::wstring(L"\\PrepImageAbschnitte_2010.template").size();
    const std::wstring folder = folderOfLength(test.path().wstring(), 259 - templateName);
    ASSERT_EQ(folder.size() + templateName, 259u);
    EXPECT_EQ(resultIn(folder, test / "out.dxf"), RasterPlanWriter::Success);
}

TEST(LibraryFolder, NearTheLimitTheSystemDecidesOnTheTemplate) {
    const TestFolder test;
    for (const std::size_t length : {247u, 258u, 259u}) {
        const LibraryCopy copy(folderOfLength(test.path().wstring(), folderForLibraryPath(length)));
        const LoadedLibrary library(unlimited(copy.library()));
        if (library.path().size() > 259)
            continue; // this system reports the prefix too
        std::FILE* const opened = _wfopen(copy.templateFile().c_str(), L"rb");
        EXPECT_EQ(library.writeDrawing((test / "out.dxf").c_str()),
                  opened ? RasterPlanWriter::Success : RasterPlanWriter::CannotOpenTemplate)
            << length;
        if (opened)
            std::fclose(opened);
    }
}

TEST(LibraryFolder, PathOf260CharactersOrMoreGivesCannotOpenTemplate) {
    const TestFolder test;
    for (const std::size_t length : {260u, 261u, 300u, 600u}) {
        const LibraryCopy copy(folderOfLength(test.path().wstring(), folderForLibraryPath(length)));
        ASSERT_EQ(copy.library().size(), length);
        const LoadedLibrary library(unlimited(copy.library()));
        ASSERT_GE(library.path().size(), 260u);
        EXPECT_EQ(library.writeDrawing((test / "out.dxf").c_str()), RasterPlanWriter::CannotOpenTemplate)
            << length;
        EXPECT_EQ(readBytes(test / "out.dxf"), "") << "the output has been emptied by then";
    }
}

TEST(LibraryFolder, LibraryCanBeLoadedAgain) {
    const TestFolder test;
    const LibraryCopy copy((test / "library").wstring());
    for (int i = 0; i < 3; ++i) {
        const LoadedLibrary library(copy.library());
        EXPECT_EQ(library.call(), 42);
        EXPECT_EQ(library.spareVariable(), 0);
        EXPECT_EQ(library.writeDrawing((test / "out.dxf").c_str()), RasterPlanWriter::Success);
    }
}
