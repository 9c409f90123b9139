#include "base/Resources.h"

#include "base/Failure.h"
#include "drawing/PendingDrawing.h"
#include "drawing/WrittenDrawing.h"
#include "picture/PictureHeader.h"
#include "site/Manifest.h"
#include "tool/TestFiles.h"

#include <gtest/gtest.h>

#include <cerrno>

#ifndef _WIN32
#include <sys/resource.h>
#include <unistd.h>
#endif

namespace rasterplan_tool {

TEST(MemoryWatch, NotesThatMemoryRanOut) {
    const MemoryWatch watch;
    EXPECT_FALSE(watch.ranOut());
    EXPECT_NO_THROW(watch.require());
    EXPECT_THROW(std::get_new_handler()(), std::bad_alloc); // as `new` does when it fails
    EXPECT_TRUE(watch.ranOut());
    EXPECT_THROW(watch.require(), std::bad_alloc);
}

TEST(MemoryWatch, EachBeginsAnew) {
    {
        const MemoryWatch watch;
        EXPECT_THROW(std::get_new_handler()(), std::bad_alloc);
    }
    EXPECT_FALSE(MemoryWatch().ranOut());
    EXPECT_EQ(std::get_new_handler(), nullptr);
}

TEST(Resources, WantOfMemoryAndOfFilesIsToldApart) {
    EXPECT_THROW(throwIfExhausted(ENOMEM), std::bad_alloc);
    EXPECT_THROW(throwIfExhausted(EMFILE), ExportFailed);
    EXPECT_THROW(throwIfExhausted(ENFILE), ExportFailed);
    for (const int other : {0, ENOENT, EACCES})
        EXPECT_NO_THROW(throwIfExhausted(other));
}

#ifndef _WIN32
namespace {

// While one lives, this process can open no file.
class NoMoreFiles {
public:
    NoMoreFiles() {
        getrlimit(RLIMIT_NOFILE, &m_before);
        const int lowestFree = dup(0);
        close(lowestFree);
        const rlimit none{static_cast<rlim_t>(lowestFree), m_before.rlim_max};
        setrlimit(RLIMIT_NOFILE, &none);
    }
    ~NoMoreFiles() { setrlimit(RLIMIT_NOFILE, &m_before); }
    NoMoreFiles(const NoMoreFiles&) = delete;
    NoMoreFiles& operator=(const NoMoreFiles&) = delete;

private:
    rlimit m_before{};
};

template <typename Action>
std::string failureWithoutFiles(const Action& action) {
    const NoMoreFiles noMoreFiles;
    try {
        action();
    } catch (const ExportFailed& failure) {
        return failure.what();
    } catch (const std::exception& other) {
        return std::string("another failure: ") + other.what();
    }
    return "no failure";
}

} // namespace

TEST(Resources, TooManyOpenFilesAreTheReasonThatIsTold) {
#ifdef RASTERPLAN_SANITIZED
    GTEST_SKIP() << "sanitizers open files of their own";
#endif
    const TestFolder folder;
    const auto file = writeFile(folder / "out.dxf", "0\nEOF\n");
    const std::string reason =
        "no further file can be opened, because too many are open; close other programs or raise the limit "
        "(ulimit -n)";
    EXPECT_EQ(failureWithoutFiles([&] { readManifest(file); }), reason);
    EXPECT_EQ(failureWithoutFiles([&] { readPixelSize(file); }), reason);
    EXPECT_EQ(failureWithoutFiles([&] { readBack(file); }), reason);
    EXPECT_EQ(failureWithoutFiles([&] { const PendingDrawing pending(file); }), reason);
}
#endif

} // namespace rasterplan_tool
