#include "Run.h"

#include "base/PathText.h"
#include "tool/TestFiles.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <new>
#include <sstream>
#include <stdexcept>
#include <system_error>

namespace rasterplan_tool {
namespace {

// What the program prints as an error when its arguments cannot be had.
template <typename Error>
std::string errorOf(const Error& error) {
    std::ostringstream out;
    std::ostringstream err;
    const auto readArguments = [&]() -> std::vector<std::string> { throw error; };
    EXPECT_EQ(run(readArguments, {out, err}), 1);
    EXPECT_EQ(out.str(), "");
    return err.str();
}

} // namespace

TEST(Run, WantOfMemoryIsSaidInFixedWords) {
    EXPECT_EQ(errorOf(std::bad_alloc()),
              "rasterplan: error: the memory ran out; close other programs or export fewer images at once\n");
}

TEST(Run, FailureOfTheSystemIsSaidInItsWords) {
    const std::string text = errorOf(std::system_error(EIO, std::generic_category(), "a\tb"));
    EXPECT_EQ(text.find("rasterplan: error: the system failed unexpectedly: a\\tb"), 0U) << text;
}

TEST(Run, TooManyOpenFilesAreNamed) {
    const std::string text = errorOf(std::system_error(EMFILE, std::generic_category()));
    EXPECT_NE(text.find("too many"), std::string::npos) << text;
}

TEST(Run, PlaneSoFarThatTheImagesVanishIsNamed) {
    const TestFolder folder;
    const std::string site = utf8FromPath(writeFile(folder / "SITE.json", siteText({imageText("a.png")})));
    const std::string output = utf8FromPath(folder / "out.dxf");
    std::ostringstream out;
    std::ostringstream err;
    const std::vector<std::string> arguments{
        "2d", site, output, "--origin=1e18,1e18,1e18", "--x-axis=1,1,0", "--y-axis=-1,1,1"};
    EXPECT_EQ(run([&] { return arguments; }, {out, err}), 1);
    EXPECT_NE(err.str().find("the images cannot be brought into the reference plane"), std::string::npos)
        << err.str();
    EXPECT_EQ(folder.names(), std::vector<std::string>{"SITE.json"});
}

TEST(Run, OtherFailuresAreSaidInTheirWords) {
    EXPECT_EQ(errorOf(std::runtime_error("a library gave up")),
              "rasterplan: error: the system failed unexpectedly: a library gave up\n");
}

} // namespace rasterplan_tool
