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
    EXPECT_EQ(shown.find("\rrasterplan: reading pictures: "), 0U) << shown;
    EXPECT_NE(shown.find(" of 20"), std::string::npos) << shown;
    EXPECT_EQ(shown.substr(shown.size() - 2), " \r");
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
