#include "reader/DxfRecords.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace rasterplan_tool {
namespace {

// The faults of a drawing, a line each.
std::vector<std::string> faultsOf(std::string_view text) {
    std::vector<std::string> faults;
    for (const DxfFault& fault : readDrawing(text).faults)
        faults.push_back(std::to_string(fault.line) + ": " + fault.text);
    return faults;
}

using Texts = std::vector<std::string>;

} // namespace

TEST(DxfRecords, KnowWhereTheyStand) {
    const DxfDrawing drawing =
        readDrawing("0\nSECTION\n2\nHEADER\n9\n$HANDSEED\n5\n7E\n0\nENDSEC\n"
                    "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nDIMSTYLE\n5\nA\n0\nDIMSTYLE\n105\n16\n5\nx\n"
                    "0\nENDTAB\n0\nENDSEC\n0\nEOF\n");
    EXPECT_TRUE(drawing.faults.empty());
    const std::vector<DxfRecord>& records = drawing.records;
    ASSERT_EQ(records.size(), 8U);
    EXPECT_EQ(records[0].handle(), "");
    EXPECT_EQ(records[3].handle(), "A");
    EXPECT_EQ(records[4].handle(), "16");
    EXPECT_EQ(records[4].section, "TABLES");
    EXPECT_EQ(records[4].table, "DIMSTYLE");
    EXPECT_EQ(records[4].line, 21U);
    EXPECT_EQ(records[6].table, "");
    EXPECT_EQ(records[7].section, "");

    const std::vector<DxfVariable> variables = headerVariables(records);
    ASSERT_EQ(variables.size(), 1U);
    EXPECT_EQ(variables[0].name, "$HANDSEED");
    ASSERT_EQ(variables[0].groups.size(), 1U);
    EXPECT_EQ(variables[0].groups[0].value, "7E");
}

TEST(DxfRecords, ValuesOfACode) {
    const DxfDrawing drawing = readDrawing(
        "0\nSECTION\n2\nENTITIES\n0\nIMAGE\n  5\n 8a \n 10\n  1.5\n 20\n+2e1\n 30\nnan\n340\n7\n340\n8\n"
        "0\nENDSEC\n0\nEOF\n");
    const DxfRecord& image = drawing.records.at(1);
    EXPECT_EQ(image.handle(), "8a");
    EXPECT_EQ(image.number(10), 1.5);
    EXPECT_EQ(image.number(20), 20.0);
    EXPECT_EQ(image.number(30), std::nullopt);
    EXPECT_EQ(image.number(40), std::nullopt);
    EXPECT_EQ(image.value(340), "7");
    EXPECT_EQ(image.values(340), (Texts{"7", "8"}));
    EXPECT_EQ(image.value(1), "");
    EXPECT_EQ(image.values(1), Texts());
}

TEST(DxfRecords, EveryWritersLinesAreTaken) {
    const char* const text = "\xEF\xBB\xBF"
                             "999\r\na comment\r\n  0 \r\n SECTION \r\n\t2\r\nENTITIES\n"
                             "  0\nLINE\n999\nanother\n  8\n0\n  0\nENDSEC\n  0\n EOF\n\n\r\n \n";
    const DxfDrawing drawing = readDrawing(text);
    EXPECT_TRUE(drawing.faults.empty());
    ASSERT_EQ(drawing.records.size(), 4U);
    EXPECT_EQ(drawing.records[1].type, "LINE");
    EXPECT_EQ(drawing.records[1].section, "ENTITIES");
    EXPECT_EQ(drawing.records[1].line, 7U);
    EXPECT_EQ(drawing.records[1].groups.size(), 1U); // without the comment
    EXPECT_TRUE(headerVariables(drawing.records).empty());
    EXPECT_TRUE(readDrawing("0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nEOF").faults.empty());
}

TEST(DxfRecords, BracketsThatDoNotMatchAreFaults) {
    EXPECT_EQ(faultsOf("2\nHEADER\n0\nEOF\n"), Texts{"1: pair before the first record"});
    EXPECT_EQ(faultsOf("0\nLINE\n0\nEOF\n"), Texts{"1: LINE outside the sections"});
    EXPECT_EQ(faultsOf("0\nSECTION\n2\nA\n0\nSECTION\n2\nB\n0\nENDSEC\n0\nEOF\n"),
              Texts{"5: section inside section A"});
    EXPECT_EQ(faultsOf("0\nSECTION\n2\nA\n0\nEOF\n"), Texts{"5: EOF inside section A"});
    EXPECT_EQ(faultsOf("0\nSECTION\n2\nA\n0\nTABLE\n2\nT\n0\nENDTAB\n0\nENDSEC\n0\nEOF\n"),
              Texts{"5: table at a wrong place"});
    EXPECT_EQ(faultsOf("0\nSECTION\n2\nTABLES\n0\nLAYER\n0\nENDSEC\n0\nEOF\n"),
              Texts{"5: LAYER outside the tables"});
    EXPECT_EQ(faultsOf("0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nT\n0\nENDSEC\n0\nEOF\n"),
              Texts{"9: section ends inside table T"});
}

TEST(DxfRecords, SectionEndsItsTable) {
    const DxfDrawing drawing = readDrawing(
        "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nT\n0\nENDSEC\n0\nSECTION\n2\nA\n0\nLINE\n0\nENDSEC\n0\nEOF\n");
    EXPECT_EQ(drawing.faults.size(), 1U);
    EXPECT_EQ(drawing.records.at(4).table, "");
}

TEST(DxfRecords, WhatStandsBeforeAFaultIsRead) {
    EXPECT_EQ(faultsOf(""), Texts{"1: no EOF at the end"});
    EXPECT_EQ(faultsOf("0\nSECTION\n2\nA\n"), Texts{"3: no EOF at the end"});
    EXPECT_EQ(faultsOf("0\nSECTION\n2\nA\n0"), Texts{"5: group code without value"});
    EXPECT_EQ(faultsOf("0\nSECTION\n2\nA\n0\nLINE\nx\n0\nEOF\n"), Texts{"7: no group code: \"x\""});
    EXPECT_EQ(faultsOf("0\nEOF\n\n0\nLINE\n"), Texts{"4: text behind EOF"});
    for (const char* code : {"1072", "-6", "1.0", "1x", "99999999999", ""})
        EXPECT_EQ(faultsOf(std::string(code) + "\nx\n"),
                  Texts{"1: no group code: \"" + std::string(code) + '"'});
    const DxfDrawing damaged = readDrawing("0\nSECTION\n2\nA\n0\nLINE\nx\n0\nEOF\n");
    EXPECT_EQ(damaged.records.size(), 2U);
    EXPECT_EQ(damaged.wholeRecords().size(), 1U); // who knows what the LINE had
    EXPECT_FALSE(damaged.isWhole());
    EXPECT_EQ(readDrawing("").wholeRecords().size(), 0U);
    const DxfDrawing misplaced = readDrawing("0\nLINE\n0\nEOF\n");
    EXPECT_EQ(misplaced.wholeRecords().size(), 2U);
    EXPECT_TRUE(misplaced.isWhole());
}

TEST(DxfRecords, FaultsStandInTheOrderOfTheirLines) {
    EXPECT_EQ(faultsOf("0\nLINE\nx\n"), (Texts{"1: LINE outside the sections", "3: no group code: \"x\""}));
}

} // namespace rasterplan_tool
