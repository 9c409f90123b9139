#include "support/DxfRecords.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace {

using namespace rasterplan::test;

// The message of the error that reading `text` throws; empty if it throws none.
std::string readError(const char* text) {
    try {
        readRecords(readGroups(text));
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return {};
}

TEST(DxfRecords, KnowsWhereARecordStands) {
    const std::vector<DxfRecord> records = readRecords(
        readGroups("0\nSECTION\n2\nHEADER\n9\n$HANDSEED\n5\n7E\n0\nENDSEC\n"
                   "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nDIMSTYLE\n5\nA\n0\nDIMSTYLE\n105\n16\n5\nx\n"
                   "0\nENDTAB\n0\nENDSEC\n0\nEOF\n"));
    ASSERT_EQ(records.size(), 8U);
    EXPECT_EQ(records[0].handle(), "");
    EXPECT_EQ(records[3].handle(), "A");
    EXPECT_EQ(records[4].handle(), "16");
    EXPECT_EQ(records[4].section, "TABLES");
    EXPECT_EQ(records[4].table, "DIMSTYLE");
    EXPECT_EQ(records[4].line, 21);
    EXPECT_EQ(records[6].table, "");
    EXPECT_EQ(records[7].section, "");
    EXPECT_THROW(records[4].value(70), std::runtime_error);

    const std::vector<DxfVariable> variables = headerVariables(records);
    ASSERT_EQ(variables.size(), 1U);
    EXPECT_EQ(variables[0].name, "$HANDSEED");
    ASSERT_EQ(variables[0].groups.size(), 1U);
    EXPECT_EQ(variables[0].groups[0].value, "7E");
}

TEST(DxfRecords, RefusesBracketsThatDoNotMatch) {
    EXPECT_EQ(readError("2\nHEADER\n"), "line 1: pair before the first record");
    EXPECT_EQ(readError("0\nLINE\n"), "line 1: LINE outside the sections");
    EXPECT_EQ(readError("0\nSECTION\n2\nA\n0\nSECTION\n2\nB\n"), "line 5: section inside section A");
    EXPECT_EQ(readError("0\nSECTION\n2\nA\n0\nEOF\n"), "line 5: EOF inside section A");
    EXPECT_EQ(readError("0\nSECTION\n2\nA\n"), "line 3: section A does not end");
    EXPECT_EQ(readError("0\nSECTION\n2\nA\n0\nTABLE\n2\nT\n"), "line 5: table at a wrong place");
    EXPECT_EQ(readError("0\nSECTION\n2\nTABLES\n0\nLAYER\n"), "line 5: LAYER outside the tables");
    EXPECT_EQ(readError("0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nT\n0\nENDSEC\n"),
              "line 9: section ends inside table T");
}

} // namespace
