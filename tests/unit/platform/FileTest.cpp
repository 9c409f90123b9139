#include "platform/File.h"

#include "support/TestFolder.h"
#include "support/WideText.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#ifdef _WIN32
#include <windows.h>

#include <io.h>
#else
#include <fcntl.h>
#endif

using namespace rasterplan;
using namespace rasterplan::test;

namespace {

std::wstring wide(const std::filesystem::path& path) {
    return wideTextOf(utf8FromPath(path));
}

// Whether programs that this one starts have the file open too.
bool isInherited(std::FILE* file) {
#ifdef _WIN32
    DWORD flags = 0;
    EXPECT_TRUE(GetHandleInformation(reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(file))), &flags));
    return (flags & HANDLE_FLAG_INHERIT) != 0;
#else
    return (fcntl(fileno(file), F_GETFD) & FD_CLOEXEC) == 0;
#endif
}

std::string readAll(std::FILE* file) {
    std::string bytes(100, '\0');
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file));
    return bytes;
}

} // namespace

TEST(File, WritesAndReadsBytes) {
    const TestFolder folder;
    const std::string bytes("a\nb\r\nc\x1A\0d", 9);
    {
        const File file = openForWriting(wide(folder / "plan.dxf"));
        ASSERT_TRUE(file);
        EXPECT_EQ(std::fwrite(bytes.data(), 1, bytes.size(), file.get()), bytes.size());
    }
    EXPECT_EQ(readBytes(folder / "plan.dxf"), bytes);
    const File file = openForReading(folder / "plan.dxf");
    ASSERT_TRUE(file);
    EXPECT_EQ(readAll(file.get()), bytes);
}

TEST(File, WritingStartsAnew) {
    const TestFolder folder;
    writeBytes(folder / "plan.dxf", "an older and longer drawing");
    {
        const File file = openForWriting(wide(folder / "plan.dxf"));
        ASSERT_TRUE(file);
        EXPECT_EQ(readBytes(folder / "plan.dxf"), "");
        std::fputs("new", file.get());
    }
    EXPECT_EQ(readBytes(folder / "plan.dxf"), "new");
}

TEST(File, HoldsNothingBack) {
    const TestFolder folder;
    const File file = openForWriting(wide(folder / "plan.dxf"));
    ASSERT_TRUE(file);
    std::fputs("at once", file.get());
    EXPECT_EQ(readBytes(folder / "plan.dxf"), "at once");
}

TEST(File, NameMayHoldAnyLetters) {
    const TestFolder folder;
    for (const char* const name : {"S\xC3\xBC"
                                   "d \xE5\x8C\x97.dxf",
                                   "\xF0\x9F\x8F\xA0.dxf"}) {
        {
            const File file = openForWriting(wide(folder / name));
            ASSERT_TRUE(file) << name;
            std::fputs("here", file.get());
        }
        EXPECT_EQ(readBytes(folder / name), "here") << name;
        const File file = openForReading(folder / name);
        ASSERT_TRUE(file) << name;
        EXPECT_EQ(readAll(file.get()), "here") << name;
    }
}

TEST(File, FolderCannotBeWritten) {
    const TestFolder folder;
    EXPECT_FALSE(openForWriting(wide(folder.path())));
    EXPECT_FALSE(openForWriting(wide(folder.path()) + L"/"));
}

TEST(File, FolderMustExist) {
    const TestFolder folder;
    EXPECT_FALSE(openForWriting(wide(folder / "missing/plan.dxf")));
    EXPECT_FALSE(openForReading(folder / "missing/plan.dxf"));
    EXPECT_FALSE(openForReading(folder / "plan.dxf"));
    EXPECT_FALSE(std::filesystem::exists(folder / "missing"));
}

TEST(File, EmptyPathOpensNothing) {
    EXPECT_FALSE(openForWriting(L""));
    EXPECT_FALSE(openForReading(std::filesystem::path()));
}

TEST(File, PathBeyondUnicodeOpensNothing) {
    if (sizeof(wchar_t) == 2)
        GTEST_SKIP() << "every wide character converts here";
    const TestFolder folder;
    EXPECT_FALSE(openForWriting(wide(folder.path()) + L"/" + static_cast<wchar_t>(0x110000)));
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST(File, OthersMayReadAndWriteItMeanwhile) {
    const TestFolder folder;
    const File first = openForWriting(wide(folder / "plan.dxf"));
    const File second = openForWriting(wide(folder / "plan.dxf"));
    const File reader = openForReading(folder / "plan.dxf");
    EXPECT_TRUE(first);
    EXPECT_TRUE(second);
    EXPECT_TRUE(reader);
}

TEST(File, ProgramsThatTheHostStartsDoNotInheritIt) {
    const TestFolder folder;
    const File output = openForWriting(wide(folder / "plan.dxf"));
    ASSERT_TRUE(output);
    EXPECT_FALSE(isInherited(output.get()));
    const File reader = openForReading(folder / "plan.dxf");
    ASSERT_TRUE(reader);
    EXPECT_FALSE(isInherited(reader.get()));
}
