#include "base/Notices.h"

#include "base/Failure.h"

#include <gtest/gtest.h>

#include <sstream>

namespace rasterplan_tool {
namespace {

// What is told of a complaint about so many images, of a warning alone and of a note.
std::string told(std::size_t images, Verbosity verbosity) {
    Notices notices;
    for (std::size_t i = 1; i <= images; ++i) {
        notices.warn({"S:" + std::to_string(i + 1), "image " + std::to_string(i)}, "they are red",
                     "it is red by " + std::to_string(i));
        if (i == 1)
            notices.warn("S: it rains");
    }
    notices.note("the sun shone");
    std::ostringstream out;
    std::ostringstream err;
    Console console{out, err, verbosity};
    notices.tell(console);
    EXPECT_EQ(out.str(), "");
    return err.str();
}

// What a strict console throws after so many warnings.
std::string strictly(std::size_t warnings, Verbosity verbosity, std::string& printed) {
    Notices notices;
    for (std::size_t i = 0; i < warnings; ++i)
        notices.warn("a");
    notices.note("b");
    std::ostringstream out;
    std::ostringstream err;
    Console console{out, err, verbosity, true};
    std::string thrown;
    try {
        notices.tell(console);
    } catch (const WarningsFound& failure) {
        EXPECT_EQ(failure.status(), ExitStatus::Failed);
        thrown = failure.what();
    }
    printed = err.str();
    return thrown;
}

} // namespace

TEST(Notices, ThreeAlikeAreToldOneByOne) {
    EXPECT_EQ(told(3, Verbosity::Normal), "rasterplan: warning: S:2: image 1: it is red by 1\n"
                                          "rasterplan: warning: S:3: image 2: it is red by 2\n"
                                          "rasterplan: warning: S:4: image 3: it is red by 3\n"
                                          "rasterplan: warning: S: it rains\n"
                                          "rasterplan: note: the sun shone\n");
}

TEST(Notices, MoreAlikeAreOneLineWithTheFirstThreeAndTheCount) {
    EXPECT_EQ(told(40, Verbosity::Normal),
              "rasterplan: warning: S:2: image 1, image 2, image 3 and 37 more (40 in all): they are red; "
              "--verbose tells of each\n"
              "rasterplan: warning: S: it rains\n"
              "rasterplan: note: the sun shone\n");
}

TEST(Notices, ComplaintsStandApart) {
    Notices notices;
    for (const char* image : {"a", "b", "c", "d", "e"}) {
        notices.warn({"S", image}, "they are red", "it is red");
        notices.warn({"S", image}, "they are cold", "it is cold");
    }
    std::ostringstream out;
    std::ostringstream err;
    Console console{out, err};
    notices.tell(console);
    EXPECT_EQ(
        err.str(),
        "rasterplan: warning: S: a, b, c and 2 more (5 in all): they are red; --verbose tells of each\n"
        "rasterplan: warning: S: a, b, c and 2 more (5 in all): they are cold; --verbose tells of each\n");
}

TEST(Notices, VerboseTellsOfEach) {
    const std::string text = told(40, Verbosity::Verbose);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 42);
    EXPECT_NE(text.find("rasterplan: warning: S:41: image 40: it is red by 40\n"), std::string::npos);
}

TEST(Notices, QuietTellsNothing) {
    EXPECT_EQ(told(40, Verbosity::Quiet), "");
}

TEST(Notices, WarningsOnTheirOwnAreNeverOneLine) {
    std::string printed;
    EXPECT_NE(strictly(4, Verbosity::Normal, printed), "");
    EXPECT_EQ(printed, "rasterplan: warning: a\nrasterplan: warning: a\nrasterplan: warning: a\n"
                       "rasterplan: warning: a\nrasterplan: note: b\n");
}

TEST(Notices, StrictFailsAfterWarningsButNotAfterNotes) {
    std::string printed;
    EXPECT_EQ(strictly(0, Verbosity::Normal, printed), "");
    EXPECT_EQ(printed, "rasterplan: note: b\n");
    EXPECT_EQ(strictly(1, Verbosity::Quiet, printed),
              "1 warning, which --strict does not let pass, so nothing more is written; mend what is warned "
              "of, or leave --strict out");
    EXPECT_EQ(printed, "");
    EXPECT_EQ(strictly(2, Verbosity::Normal, printed).find("2 warnings, "), 0U);
}

} // namespace rasterplan_tool
