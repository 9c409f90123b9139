#include "support/StrictDxf.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace {

using namespace rasterplan::test;

// The message of the error that reading `text` throws; empty if it throws none.
std::string readError(const char* text) {
    try {
        strictGroups(text);
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return {};
}

TEST(StrictDxf, ReadsPairsWithTheirLines) {
    const std::vector<DxfGroup> groups = strictGroups("  0\r\nSECTION\r\n2\r\n HEADER \r\n1\r\n\r\n", 11);
    ASSERT_EQ(groups.size(), 3U);
    EXPECT_EQ(groups[0].code, 0);
    EXPECT_EQ(groups[0].value, "SECTION");
    EXPECT_EQ(groups[0].line, 11U);
    EXPECT_EQ(groups[1].value, " HEADER ");
    EXPECT_EQ(groups[2].value, "");
    EXPECT_EQ(groups[2].line, 15U);
    EXPECT_TRUE(strictGroups("").empty());
}

TEST(StrictDxf, TakesEmptyLinesBehindEofOnly) {
    EXPECT_EQ(strictGroups("0\nEOF").size(), 1U);
    EXPECT_EQ(strictGroups("0\nEOF\n\n\n").size(), 1U);
    EXPECT_EQ(readError("0\nEOF\n\n1\n"), "line 4: text behind EOF");
}

TEST(StrictDxf, RefusesWhatIsNotStrictlyPairs) {
    EXPECT_EQ(readError("999\nx\n0"), "line 3: group code without value");
    EXPECT_EQ(readError("\n0\nEOF\n"), "line 1: no group code: \"\"");
    EXPECT_EQ(readError("LINE\n5\n"), "line 1: no group code: \"LINE\"");
    EXPECT_EQ(readError("0 \nEOF\n"), "line 1: no group code: \"0 \"");
    EXPECT_EQ(readError("\xEF\xBB\xBF"
                        "0\nEOF\n"),
              "line 1: no group code: \"\xEF\xBB\xBF"
              "0\"");
    EXPECT_EQ(readError("1072\nx\n"), "line 1: no group code: \"1072\"");
    EXPECT_EQ(readError("-6\nx\n"), "line 1: no group code: \"-6\"");
    EXPECT_EQ(readError("0\nE\rOF\n"), "line 2: carriage return inside a line");
    EXPECT_EQ(readError("0\r\nEOF\n"), "line 2: another line end than before");
}

TEST(StrictDxf, RefusesRecordsThatNoDrawingHas) {
    const auto recordError = [](const char* text) -> std::string {
        try {
            strictRecords(strictGroups(text));
        } catch (const std::runtime_error& error) {
            return error.what();
        }
        return {};
    };
    EXPECT_EQ(recordError("0\nSECTION\n2\nA\n0\nENDSEC\n0\nEOF\n"), "");
    EXPECT_EQ(recordError("0\nSECTION\n2\nA\n0\nENDSEC\n"), "line 5: no EOF at the end");
    EXPECT_EQ(recordError("0\nLINE\n0\nEOF\n"), "line 1: LINE outside the sections");
    EXPECT_EQ(recordError("0\nSECTION\n2\nA\n0\nLINE\n5\n7\n5\n8\n0\nENDSEC\n0\nEOF\n"),
              "line 5: LINE has two handles");
}

TEST(StrictDxf, KnowsTheFormOfValues) {
    EXPECT_TRUE(valueFitsCode({70, "-1", 1}));
    EXPECT_FALSE(valueFitsCode({71, "0.0", 1}));
    EXPECT_TRUE(valueFitsCode({15, "-1.0E+20", 1}));
    EXPECT_FALSE(valueFitsCode({10, "1,5", 1}));
    EXPECT_FALSE(valueFitsCode({40, "", 1}));
    EXPECT_FALSE(valueFitsCode({290, "2", 1}));
    EXPECT_TRUE(valueFitsCode({5, "7E", 1}));
    EXPECT_FALSE(valueFitsCode({350, "7e", 1}));
    EXPECT_FALSE(valueFitsCode({330, "07", 1}));
    EXPECT_TRUE(valueFitsCode({1, "", 1}));
}

TEST(StrictDxf, TellsPointersFromDefinitions) {
    for (const int code : {330, 340, 350, 360, 390, 480, 1005})
        EXPECT_TRUE(isPointerCode(code)) << code;
    for (const int code : {5, 105, 70, 370, 100})
        EXPECT_FALSE(isPointerCode(code)) << code;
    EXPECT_EQ(strictHandle("7E"), 126U);
    EXPECT_THROW(strictHandle(""), std::runtime_error);
    EXPECT_THROW(strictHandle("123456789"), std::runtime_error);
}

} // namespace
