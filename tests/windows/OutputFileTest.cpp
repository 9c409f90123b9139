// Where the output may lie, for a host that was linked against the import library.

#include "FileHolder.h"
#include "SampleDrawing.h"
#include "support/TestFolder.h"

#include <gtest/gtest.h>

using namespace rasterplan::test;

TEST(OutputFile, MayHoldLettersOutsideTheCodePage) {
    const TestFolder test;
    for (const char* name : {"Größe Maß.dxf", "図面.dxf", "폴더.dxf", "home \xF0\x9F\x8F\xA0.dxf"}) {
        EXPECT_EQ(writeSample((test / name).c_str()), RasterPlanWriter::Success) << name;
        EXPECT_NE(readBytes(test / name), "") << name;
    }
}

TEST(OutputFile, MayBeGivenWithEitherSeparator) {
    const TestFolder test;
    std::wstring path = (test / "out.dxf").wstring();
    for (const wchar_t separator : {L'/', L'\\'}) {
        for (wchar_t& c : path)
            if (c == L'/' || c == L'\\')
                c = separator;
        EXPECT_EQ(writeSample(path.c_str()), RasterPlanWriter::Success);
    }
}

TEST(OutputFile, OnAMissingDriveGivesCannotOpenOutput) {
    ASSERT_EQ(GetDriveTypeW(L"Q:\\"), static_cast<UINT>(DRIVE_NO_ROOT_DIR));
    EXPECT_EQ(writeSample(L"Q:\\out.dxf"), RasterPlanWriter::CannotOpenOutput);
}

TEST(OutputFile, InAReadOnlyPlaceGivesCannotOpenOutput) {
    const wchar_t* const place = L"Z:\\proc";
    if (GetFileAttributesW(place) == INVALID_FILE_ATTRIBUTES)
        GTEST_SKIP() << "there is no place here that nobody may write to";
    EXPECT_EQ(writeSample((std::wstring(place) + L"\\out.dxf").c_str()), RasterPlanWriter::CannotOpenOutput);
}

TEST(OutputFile, InAMissingFolderGivesCannotOpenOutput) {
    const TestFolder test;
    EXPECT_EQ(writeSample((test / "missing/out.dxf").c_str()), RasterPlanWriter::CannotOpenOutput);
}

TEST(OutputFile, ThatIsAFolderGivesCannotOpenOutput) {
    const TestFolder test;
    EXPECT_EQ(writeSample(test.path().c_str()), RasterPlanWriter::CannotOpenOutput);
}

TEST(OutputFile, WithACharacterThatNoNameHasGivesCannotOpenOutput) {
    const TestFolder test;
    for (const char* name : {"a*b.dxf", "a?b.dxf", "a<b.dxf", "a|b.dxf"})
        EXPECT_EQ(writeSample((test / name).c_str()), RasterPlanWriter::CannotOpenOutput) << name;
}

// Under Wine the superuser may write to it all the same, and so may the library then.
TEST(OutputFile, ThatIsReadOnlyIsOpenedByNobodyWhoMayNot) {
    const TestFolder test;
    const std::filesystem::path file = test / "out.dxf";
    writeBytes(file, "kept");
    ASSERT_TRUE(SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY));
    const HANDLE probe = CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    const bool allowed = probe != INVALID_HANDLE_VALUE;
    if (allowed)
        CloseHandle(probe);
    EXPECT_EQ(writeSample(file.c_str()),
              allowed ? RasterPlanWriter::Success : RasterPlanWriter::CannotOpenOutput);
    ASSERT_TRUE(SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL));
    EXPECT_EQ(readBytes(file) == "kept", !allowed);
}

TEST(OutputFile, MayBeOpenForReadingInAnotherProcess) {
    const TestFolder test;
    const std::filesystem::path file = test / "out.dxf";
    ASSERT_EQ(writeSample(file.c_str()), RasterPlanWriter::Success);
    const std::string expected = readBytes(file);
    writeBytes(file, "older");
    const FileHolder holder(file, FILE_SHARE_READ | FILE_SHARE_WRITE);
    EXPECT_EQ(writeSample(file.c_str()), RasterPlanWriter::Success);
    EXPECT_EQ(readBytes(file), expected);
}

TEST(OutputFile, HeldByAProcessThatAllowsNoWritingGivesCannotOpenOutput) {
    const TestFolder test;
    const std::filesystem::path file = test / "out.dxf";
    writeBytes(file, "kept");
    {
        const FileHolder holder(file, FILE_SHARE_READ);
        EXPECT_EQ(writeSample(file.c_str()), RasterPlanWriter::CannotOpenOutput);
    }
    EXPECT_EQ(readBytes(file), "kept");
}
