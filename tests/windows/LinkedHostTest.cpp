// A host that was linked against the import library, and so has runtimes of its own beside the library's.

#include "SampleDrawing.h"
#include "support/TestFolder.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include <windows.h>

using namespace rasterplan::test;

namespace {

// Looks at what the system tells of a file's version.
void expectVersionOf(const char* file) {
    const std::wstring library = pathFromUtf8(file).make_preferred().wstring();
    std::vector<char> resource(GetFileVersionInfoSizeW(library.c_str(), nullptr));
    ASSERT_FALSE(resource.empty());
    ASSERT_TRUE(
        GetFileVersionInfoW(library.c_str(), 0, static_cast<DWORD>(resource.size()), resource.data()));
    void* value = nullptr;
    UINT length = 0;
    ASSERT_TRUE(
        VerQueryValueW(resource.data(), L"\\StringFileInfo\\040904B0\\ProductVersion", &value, &length));
    EXPECT_EQ(static_cast<const wchar_t*>(value), std::wstring(L"" RASTERPLAN_VERSION_TEXT));
    ASSERT_TRUE(VerQueryValueW(resource.data(), L"\\", &value, &length));
    const auto& fixed = *static_cast<const VS_FIXEDFILEINFO*>(value);
    EXPECT_EQ(std::to_string(HIWORD(fixed.dwFileVersionMS)) + '.' +
                  std::to_string(LOWORD(fixed.dwFileVersionMS)) + '.' +
                  std::to_string(HIWORD(fixed.dwFileVersionLS)),
              RASTERPLAN_VERSION);
}

} // namespace

TEST(LinkedHost, ReachesTheFreeNames) {
    EXPECT_EQ(fnRasterPlanWriter(), 42);
    EXPECT_EQ(nRasterPlanWriter, 0);
}

TEST(LinkedHost, CatchesTheLibrarysExceptionsAsStandardOnes) {
    ImageParam image(L"south.png");
    try {
        image.setImageCorners({1, 1, 1}, {1, 1, 1}, {2, 1, 1});
        FAIL() << "an edge of length zero throws";
    } catch (const std::exception& error) {
        EXPECT_STRNE(error.what(), "");
    }
}

TEST(LinkedHost, UsesTheLibraryBesideItsProgram) {
    std::wstring path(1000, L'\0');
    path.resize(GetModuleFileNameW(GetModuleHandleW(L"RasterPlanWriter.dll"), path.data(), 1000));
    EXPECT_TRUE(std::filesystem::equivalent(path, pathFromUtf8(RASTERPLAN_LIBRARY).make_preferred()));
}

TEST(LinkedHost, GermanLocaleChangesNoByte) {
    const TestFolder test;
    ASSERT_EQ(writeSample((test / "plain.dxf").c_str()), RasterPlanWriter::Success);
    ASSERT_TRUE(std::setlocale(LC_ALL, "German_Germany.1252"));
    char number[8] = {};
    std::snprintf(number, sizeof number, "%.1f", 0.5);
    const RasterPlanWriter::ErrorEnum result = writeSample((test / "german.dxf").c_str());
    std::setlocale(LC_ALL, "C");
    ASSERT_STREQ(number, "0,5") << "the locale has no decimal comma: the test would show nothing";
    EXPECT_EQ(result, RasterPlanWriter::Success);
    EXPECT_EQ(readBytes(test / "german.dxf"), readBytes(test / "plain.dxf"));
}

TEST(LinkedHost, LibraryTellsItsVersion) {
    expectVersionOf(RASTERPLAN_LIBRARY);
}

#ifdef RASTERPLAN_C_LIBRARY
TEST(LinkedHost, CLibraryTellsItsVersion) {
    expectVersionOf(RASTERPLAN_C_LIBRARY);
}
#endif
