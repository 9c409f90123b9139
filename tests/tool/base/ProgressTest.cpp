#include "base/Progress.h"

#include <gtest/gtest.h>

#include <iostream>
#include <sstream>
#include <thread>

namespace rasterplan_tool {
namespace {

// What a terminal gets of a work that tells every tenth of a second how far it is.
std::string shownOf(int tenths, bool isTerminal) {
    std::ostringstream stream;
    {
        Progress progress(stream, "reading pictures", isTerminal);
        for (int i = 0; i < tenths; ++i) {
            progress.tell(static_cast<std::size_t>(i), 20);
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
        }
    }
    return stream.str();
}

} // namespace

TEST(Progress, IsShownBeyondASecondAndVanishes) {
    const std::string shown = shownOf(13, true);
    EXPECT_EQ(shown.find("\rreading pictures: 1"), 0U) << shown;
    const std::string blanks(std::string_view("reading pictures: 12 of 20").size(), ' ');
    EXPECT_TRUE(shown.ends_with(" of 20\r" + blanks + '\r')) << shown;
}

TEST(Progress, FitsAWindowOf40Columns) {
    std::ostringstream stream;
    Progress progress(stream, "reading pictures", true);
    std::this_thread::sleep_for(std::chrono::milliseconds(1100));
    progress.tell(9999999, 9999999);
    progress.hide();
    std::istringstream shown(stream.str());
    for (std::string line; std::getline(shown, line, '\r');)
        EXPECT_LT(line.size(), 40U) << line;
    EXPECT_GT(stream.str().size(), 40U);
}

TEST(Progress, IsNotShownWithinASecond) {
    EXPECT_EQ(shownOf(5, true), "");
}

TEST(Progress, IsNotShownWhereNoTerminalIs) {
    EXPECT_EQ(shownOf(12, false), "");
    const std::ostringstream text;
    EXPECT_FALSE(showsOnTerminal(text));
    EXPECT_FALSE(showsOnTerminal(std::cout));
}

} // namespace rasterplan_tool
