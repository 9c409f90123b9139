#include "platform/ModulePath.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace fs = std::filesystem;

// The tests hold the library's code themselves, so it is their own file that counts.

TEST(ModulePath, NamesTheFileThatHoldsTheCode) {
    const fs::path path = rasterplan::modulePath();
    ASSERT_TRUE(fs::is_regular_file(path)) << path;
    EXPECT_TRUE(path.is_absolute()) << path;
    EXPECT_EQ(path.stem(), "unit_tests");
}

#ifdef __linux__
TEST(ModulePath, IsTheRunningProgram) {
    EXPECT_TRUE(fs::equivalent(rasterplan::modulePath(), "/proc/self/exe"));
}
#endif

TEST(ModulePath, DoesNotDependOnTheCurrentFolder) {
    const fs::path before = rasterplan::modulePath();
    const fs::path current = fs::current_path();
    fs::current_path(fs::temp_directory_path());
    const fs::path after = rasterplan::modulePath();
    fs::current_path(current);
    EXPECT_EQ(after, before);
}
