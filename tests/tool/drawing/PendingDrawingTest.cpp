#include "drawing/PendingDrawing.h"

#include "base/Failure.h"
#include "base/PathText.h"
#include "support/OrdinaryUser.h"
#include "tool/TestFiles.h"

#include <gtest/gtest.h>

#include <fstream>

#ifndef _WIN32
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace fs = std::filesystem;

namespace rasterplan_tool {
namespace {

constexpr std::string_view complete = "0\r\nSECTION\r\n  0\r\nEOF\r\n";

std::string failureOfOutput(const fs::path& output) {
    try {
        const PendingDrawing pending(output);
    } catch (const ExportFailed& failure) {
        return failure.what();
    }
    return "no failure";
}

} // namespace

TEST(PendingDrawing, ReplacesTheDestinationOnlyAtTheEnd) {
    const TestFolder folder;
    const fs::path output = writeFile(folder / "out.dxf", "old");
    {
        PendingDrawing pending(output);
        EXPECT_EQ(pending.destination(), output);
        EXPECT_EQ(pending.temporary().parent_path(), folder.path());
        writeFile(pending.temporary(), complete);
        EXPECT_EQ(readBytes(output), "old");
        EXPECT_EQ(pending.finish(0), complete.size());
        EXPECT_EQ(readBytes(output), "old");
        pending.putInPlace();
    }
    EXPECT_EQ(readBytes(output), complete);
    EXPECT_EQ(folder.names(), std::vector<std::string>{"out.dxf"});
}

TEST(PendingDrawing, CreatesAMissingDestination) {
    const TestFolder folder;
    PendingDrawing pending(folder / "neü.dxf");
    writeFile(pending.temporary(), complete);
    pending.putInPlace();
    EXPECT_EQ(readBytes(folder / "neü.dxf"), complete);
}

TEST(PendingDrawing, GivenUpItLeavesNothingBehind) {
    const TestFolder folder;
    const fs::path output = writeFile(folder / "out.dxf", "old");
    {
        const PendingDrawing pending(output);
        writeFile(pending.temporary(), "half");
    }
    EXPECT_EQ(readBytes(output), "old");
    EXPECT_EQ(folder.names(), std::vector<std::string>{"out.dxf"});
}

TEST(PendingDrawing, IncompleteDrawingsAreDiscarded) {
    for (std::size_t length = 0; length + 2 < complete.size(); ++length) {
        const TestFolder folder;
        const fs::path output = writeFile(folder / "out.dxf", "old");
        {
            PendingDrawing pending(output);
            writeFile(pending.temporary(), complete.substr(0, length));
            EXPECT_THROW(pending.finish(0), ExportFailed) << length;
        }
        EXPECT_EQ(readBytes(output), "old");
        EXPECT_EQ(folder.names(), std::vector<std::string>{"out.dxf"});
    }
}

TEST(PendingDrawing, DrawingThatWasNeverWrittenIsAFailure) {
    const TestFolder folder;
    PendingDrawing pending(folder / "out.dxf");
    EXPECT_THROW(pending.finish(0), ExportFailed);
    EXPECT_THROW(pending.putInPlace(), ExportFailed);
}

TEST(PendingDrawing, EndIsFoundBehindEmptyLinesAndInLongDrawings) {
    for (const std::string& text : {std::string("0\r\nEOF\r\n\r\n"), std::string("0\nEOF"),
                                    "1\r\n" + std::string(100000, 'x') + "\r\n0\r\nEOF\r\n"}) {
        const TestFolder folder;
        PendingDrawing pending(folder / "out.dxf");
        writeFile(pending.temporary(), text);
        EXPECT_EQ(pending.finish(0), text.size());
    }
}

TEST(PendingDrawing, WrongEndsAreFound) {
    for (const std::string_view text :
         {"0\r\nENDSEC\r\n", "10\r\nEOF\r\n", "0\r\nxEOF\r\n", "EOF\r\n", "\r\n\r\n"}) {
        const TestFolder folder;
        PendingDrawing pending(folder / "out.dxf");
        writeFile(pending.temporary(), text);
        EXPECT_THROW(pending.finish(0), ExportFailed) << text;
    }
}

TEST(PendingDrawing, ViewModeBecomesAnIntegerAndNothingElseChanges) {
    const TestFolder folder;
    PendingDrawing pending(folder / "out.dxf");
    writeFile(pending.temporary(), "0\r\nVPORT\r\n 71\r\n0.0\r\n 72\r\n0.0\r\n0\r\nEOF\r\n");
    const std::string finished = "0\r\nVPORT\r\n 71\r\n  0\r\n 72\r\n0.0\r\n0\r\nEOF\r\n";
    EXPECT_EQ(pending.finish(0), finished.size());
    EXPECT_EQ(readBytes(pending.temporary()), finished);
    EXPECT_EQ(pending.finish(0), finished.size());
    EXPECT_EQ(readBytes(pending.temporary()), finished);
}

TEST(PendingDrawing, MissingImagesAreFound) {
    const std::string image = "0\r\nIMAGE\r\n";
    const std::string definition = "0\r\nIMAGEDEF\r\n";
    const TestFolder folder;
    PendingDrawing pending(folder / "out.dxf");
    const auto failureWith = [&](const std::string& records) -> std::string {
        writeFile(pending.temporary(), records + std::string(complete));
        try {
            pending.finish(2);
        } catch (const ExportFailed& failure) {
            return failure.what();
        }
        return "no failure";
    };
    EXPECT_EQ(failureWith(image + image + definition + definition), "no failure");
    EXPECT_EQ(failureWith(image + image + image + definition + definition), "no failure");
    const std::string lost = "only 1 of the 2 images came into the drawing, which was discarded";
    EXPECT_NE(failureWith(image + definition).find(lost), std::string::npos);
    for (const std::string& records : {std::string(), image + image, image + image + definition, definition})
        EXPECT_NE(failureWith(records).find("has no place for them; install"), std::string::npos) << records;
}

TEST(PendingDrawing, UnusablePlacesAreRefusedInWords) {
    const TestFolder folder;
    const std::string name = quoted(folder.path());
    EXPECT_EQ(failureOfOutput(folder.path()),
              name + ": this is a folder; name a file in it, such as site.dxf");
    EXPECT_NE(failureOfOutput(folder / "new/").find(": this is a folder; name a file in it"),
              std::string::npos);
    EXPECT_EQ(failureOfOutput(folder / "no/out.dxf"), quoted(folder / "no/out.dxf") + ": the folder " +
                                                          quoted(folder / "no") +
                                                          " does not exist; create it or name another one");
    writeFile(folder / "file", "");
    EXPECT_NE(failureOfOutput(folder / "file/out.dxf").find("does not exist; create it"), std::string::npos);
    EXPECT_EQ(folder.names(), std::vector<std::string>{"file"});
}

TEST(PendingDrawing, WriteProtectedFileIsRefused) {
    const TestFolder folder;
    const fs::path output = writeFile(folder / "out.dxf", "old");
    const auto writing = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    fs::permissions(output, writing, fs::perm_options::remove);
    {
        const rasterplan::test::OrdinaryUser user;
        if (!user.holds() || std::ofstream(output, std::ios::app).is_open())
            GTEST_SKIP() << "permissions bind nobody here: the administrator, or who runs Wine as one";
        EXPECT_EQ(failureOfOutput(output),
                  quoted(output) +
                      ": the file exists and cannot be written; take away its write protection, close the "
                      "program that holds it open, or name another file");
    }
    EXPECT_EQ(readBytes(output), "old");
    fs::permissions(output, fs::perms::owner_write, fs::perm_options::add); // Windows removes no other
}

#ifndef _WIN32
TEST(PendingDrawing, DevicesAreRefused) {
    EXPECT_EQ(failureOfOutput("/dev/null"),
              "\"/dev/null\": this is a device or a pipe; a drawing can only be written to a file");
}

TEST(PendingDrawing, LinkStaysALink) {
    const TestFolder folder;
    fs::create_directory(folder / "real");
    fs::create_symlink("real/site.dxf", folder / "link.dxf");
    fs::create_symlink(folder / "link.dxf", folder / "second.dxf");
    for (const char* round : {"the target is missing", "the target exists"}) {
        PendingDrawing pending(folder / "second.dxf");
        EXPECT_EQ(pending.destination(), folder / "real/site.dxf") << round;
        EXPECT_EQ(pending.temporary().parent_path(), folder / "real") << round;
        writeFile(pending.temporary(), complete);
        pending.putInPlace();
    }
    EXPECT_TRUE(fs::is_symlink(folder / "second.dxf"));
    EXPECT_TRUE(fs::is_symlink(folder / "link.dxf"));
    EXPECT_EQ(readBytes(folder / "real/site.dxf"), complete);
}

TEST(PendingDrawing, LinksInACircleAreRefused) {
    const TestFolder folder;
    fs::create_symlink("b.dxf", folder / "a.dxf");
    fs::create_symlink("a.dxf", folder / "b.dxf");
    EXPECT_NE(failureOfOutput(folder / "a.dxf").find("the symbolic links lead in a circle"),
              std::string::npos);
}

TEST(PendingDrawing, PermissionsOfTheReplacedFileStay) {
    const TestFolder folder;
    const fs::path output = writeFile(folder / "out.dxf", "old");
    const auto permissions = fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read;
    fs::permissions(output, permissions);
    PendingDrawing pending(output);
    writeFile(pending.temporary(), complete);
    pending.putInPlace();
    EXPECT_EQ(fs::status(output).permissions(), permissions);
}

TEST(PendingDrawing, OwnerOfTheReplacedFileStays) {
    const TestFolder folder;
    const fs::path output = writeFile(folder / "out.dxf", "old");
    constexpr uid_t owner = 4711;
    constexpr gid_t group = 4712;
    if (chown(output.c_str(), owner, group) != 0)
        GTEST_SKIP() << "only the superuser can give a file away";
    fs::permissions(output, fs::perms::set_gid, fs::perm_options::add);
    const fs::perms permissions = fs::status(output).permissions();
    PendingDrawing pending(output);
    writeFile(pending.temporary(), complete);
    pending.putInPlace();
    struct stat after {};
    ASSERT_EQ(stat(output.c_str(), &after), 0);
    EXPECT_EQ(after.st_uid, owner);
    EXPECT_EQ(after.st_gid, group);
    EXPECT_EQ(fs::status(output).permissions(), permissions);
}
#endif

} // namespace rasterplan_tool
