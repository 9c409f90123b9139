#include "report/DrawingCheck.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace rasterplan_tool {
namespace {

// A drawing of one picture, in which nothing is wrong; a line is a pair.
constexpr std::string_view goodPairs = R"(0 SECTION
2 CLASSES
0 CLASS
1 LAYOUT
91 2
0 CLASS
1 IMAGE
91 1
0 CLASS
1 IMAGEDEF
91 1
0 CLASS
1 IMAGEDEF_REACTOR
91 1
0 ENDSEC
0 SECTION
2 TABLES
0 TABLE
2 VPORT
5 8
0 VPORT
5 29
2 *Active
16 0.0
26 0.0
36 1.0
0 ENDTAB
0 TABLE
2 LAYER
5 2
0 LAYER
5 10
2 Pictures
70 0
62 7
0 ENDTAB
0 TABLE
2 BLOCK_RECORD
5 1
0 BLOCK_RECORD
5 1F
2 *Model_Space
0 BLOCK_RECORD
5 21
2 Sheet
0 ENDTAB
0 ENDSEC
0 SECTION
2 BLOCKS
0 BLOCK
5 22
2 Sheet
0 ENDBLK
5 23
0 ENDSEC
0 SECTION
2 ENTITIES
0 IMAGE
5 8A
8 PICTURES
10 0.0
20 0.0
30 0.0
11 0.01
21 0.0
31 0.0
12 0.0
22 0.01
32 0.0
13 17.0
23 9.0
340 8B
70 7
280 1
360 8C
71 1
91 2
14 -0.5
24 -0.5
14 16.5
24 8.5
0 ENDSEC
0 SECTION
2 OBJECTS
0 DICTIONARY
5 C
3 ACAD_IMAGE_DICT
350 5A
0 DICTIONARY
5 5A
3 south
350 8B
0 IMAGEDEF
5 8B
102 {ACAD_REACTORS
330 5A
330 8C
102 }
330 5A
1 south.png
10 17.0
20 9.0
0 IMAGEDEF_REACTOR
5 8C
330 8A
0 ENDSEC
0 EOF
)";

std::string textOf(const std::string& pairs) {
    std::istringstream stream(pairs);
    std::string text;
    for (std::string pair; std::getline(stream, pair);)
        text += pair.substr(0, pair.find(' ')) + '\n' + pair.substr(pair.find(' ') + 1) + '\n';
    return text;
}

// The good pairs with the first `from` behind `mark` replaced. Fails the test when there is none.
std::string changed(std::string_view mark, std::string_view from, std::string_view to,
                    std::string pairs = std::string(goodPairs)) {
    const std::size_t start = pairs.find(mark);
    const std::size_t at = start == std::string::npos ? start : pairs.find(from, start);
    EXPECT_NE(at, std::string::npos) << mark << from;
    return at == std::string::npos ? pairs : pairs.replace(at, from.size(), to);
}

// A finding with its record, in words of the test.
std::string shown(const Finding& finding) {
    return std::string(kindName(finding.kind)) + ' ' + finding.record + ' ' + finding.handle;
}

using Texts = std::vector<std::string>;

Texts findingsOf(const std::string& pairs) {
    Texts texts;
    for (const Finding& finding : checkRecords(readDrawing(textOf(pairs))))
        texts.push_back(shown(finding));
    return texts;
}

const Texts none = {};

} // namespace

TEST(DrawingCheck, GoodDrawingHasNoFinding) {
    EXPECT_EQ(findingsOf(std::string(goodPairs)), none);
    EXPECT_EQ(findingsOf("0 EOF\n"), none);
    EXPECT_EQ(findingsOf("999 a comment\n0 SECTION\n2 ENTITIES\n0 LINE\n8 0\n0 ENDSEC\n0 EOF\n"), none);
}

TEST(DrawingCheck, DrawingAsLibreCadWritesItHasNoFinding) {
    const std::size_t classes = goodPairs.find("0 CLASS\n");
    std::string pairs(goodPairs);
    pairs.erase(classes, goodPairs.find("0 ENDSEC", classes) - classes);
    pairs = changed("0 IMAGE\n", "70 7\n280 1\n", "70     1\n280     0\n", pairs);
    pairs = changed("0 IMAGE\n", "71 1\n91 2\n14 -0.5\n24 -0.5\n14 16.5\n24 8.5\n", "", pairs);
    pairs = changed("0 IMAGEDEF\n", "330 5A\n", "", pairs);
    EXPECT_EQ(findingsOf(changed("0 VPORT\n5", "2 *Active", "2 *ACTIVE", pairs)), none);
}

TEST(DrawingCheck, HandlesAreNumbersInAnyWriting) {
    EXPECT_EQ(findingsOf(changed("IMAGE\n5", "340 8B", "340 008b")), none);
    EXPECT_EQ(findingsOf(changed("IMAGEDEF_REACTOR\n5", "330 8A", "330   8a ")), none);
}

TEST(DrawingCheck, ImageDictionary) {
    EXPECT_EQ(findingsOf(changed("0 DICTIONARY", "3 ACAD_IMAGE_DICT\n350 5A\n", "")),
              Texts{"no-image-dictionary DICTIONARY C"});
    EXPECT_EQ(findingsOf(changed("0 DICTIONARY", "350 5A", "350 5B")),
              Texts{"no-image-dictionary DICTIONARY C"});
    EXPECT_EQ(findingsOf(changed("0 DICTIONARY", "350 5A", "350 8B")),
              Texts{"no-image-dictionary DICTIONARY C"});
    EXPECT_EQ(findingsOf(changed("0 DICTIONARY", "350 8B", "350 8C")),
              Texts{"no-image-dictionary IMAGEDEF 8B"});
    EXPECT_EQ(findingsOf(changed("0 DICTIONARY", "350 8B", "360 8B")), none);
    EXPECT_EQ(findingsOf(changed("2 OBJECTS", "OBJECTS", "OTHERS")), Texts{"no-image-dictionary  "});
}

TEST(DrawingCheck, ClassCounts) {
    EXPECT_EQ(findingsOf(changed("1 IMAGE\n", "91 1", "91 0")), Texts{"class-count CLASS "});
    EXPECT_EQ(findingsOf(changed("1 IMAGEDEF\n", "91 1", "91 0")), Texts{"class-count CLASS "});
    EXPECT_EQ(findingsOf(changed("1 IMAGEDEF_REACTOR\n", "91 1", "91 0")), Texts{"class-count CLASS "});
    EXPECT_EQ(findingsOf(changed("1 IMAGE\n", "91 1\n", "")), none); // as before 2004
    std::string uncounted = changed("1 LAYOUT\n", "91 2", "91 0");
    for (const char* name : {"1 IMAGE\n", "1 IMAGEDEF\n", "1 IMAGEDEF_REACTOR\n"})
        uncounted = changed(name, "91 1", "91 0", uncounted);
    EXPECT_EQ(findingsOf(uncounted), none); // of a writer that counts nothing
}

TEST(DrawingCheck, ClassOfNoRecordsMayCountNone) {
    const std::size_t start = goodPairs.find("0 IMAGEDEF_REACTOR\n5");
    const std::string reactor(goodPairs.substr(start, goodPairs.find("0 ENDSEC", start) - start));
    EXPECT_EQ(
        findingsOf(changed("1 IMAGEDEF_REACTOR\n", "91 1", "91 0", changed("0 IMAGEDEF\n", reactor, ""))),
        Texts{"broken-ring IMAGE 8A"});
}

TEST(DrawingCheck, RingOfImageDefinitionAndReactor) {
    EXPECT_EQ(findingsOf(changed("0 IMAGE\n", "340 8B", "340 8C")), Texts{"broken-ring IMAGE 8A"});
    EXPECT_EQ(findingsOf(changed("0 IMAGE\n", "340 8B", "340 FF")), Texts{"broken-ring IMAGE 8A"});
    EXPECT_EQ(findingsOf(changed("0 IMAGE\n", "340 8B\n", "")), Texts{"broken-ring IMAGE 8A"});
    EXPECT_EQ(findingsOf(changed("0 IMAGE\n", "360 8C", "360 0")), Texts{"broken-ring IMAGE 8A"});
    EXPECT_EQ(findingsOf(changed("0 IMAGE\n", "360 8C\n", "")), Texts{"broken-ring IMAGE 8A"});
    EXPECT_EQ(findingsOf(changed("0 IMAGEDEF_REACTOR\n", "330 8A", "330 8B")),
              Texts{"broken-ring IMAGEDEF_REACTOR 8C"});
    EXPECT_EQ(findingsOf(changed("0 IMAGEDEF_REACTOR\n", "330 8A", "330 8A\n330 8B")),
              Texts{"broken-ring IMAGEDEF_REACTOR 8C"}); // the first is the owner
    EXPECT_EQ(findingsOf(changed("0 IMAGEDEF_REACTOR\n", "330 8A\n", "")),
              Texts{"broken-ring IMAGEDEF_REACTOR 8C"});
    EXPECT_EQ(findingsOf(changed("0 IMAGEDEF\n", "330 8C\n", "")), Texts{"broken-ring IMAGEDEF 8B"});
}

TEST(DrawingCheck, ClipBoundary) {
    EXPECT_EQ(findingsOf(changed("0 IMAGE\n", "14 16.5", "14 -0.5")), Texts{"empty-clip-boundary IMAGE 8A"});
    EXPECT_EQ(findingsOf(changed("0 IMAGE\n", "24 8.5", "24 -0.5")), Texts{"empty-clip-boundary IMAGE 8A"});
    const char* const corners = "14 -0.5\n24 -0.5\n14 16.5\n24 8.5\n";
    EXPECT_EQ(findingsOf(changed("0 IMAGE\n", std::string("91 2\n") + corners, "91 0\n")),
              Texts{"empty-clip-boundary IMAGE 8A"});
    EXPECT_EQ(findingsOf(changed("0 IMAGE\n", std::string("71 1\n91 2\n") + corners, "")), none);
}

TEST(DrawingCheck, SharedHandle) {
    EXPECT_EQ(findingsOf(changed("0 LAYER\n", "5 10", "5 1f")), Texts{"shared-handle BLOCK_RECORD 1F"});
    EXPECT_EQ(findingsOf(changed("0 LAYER\n", "5 10", "5 0")), none);
}

TEST(DrawingCheck, DisplayFlags) {
    EXPECT_EQ(findingsOf(changed("0 IMAGE\n", "70 7", "70 6")), Texts{"switched-off IMAGE 8A"});
    const std::string off = textOf(changed("0 IMAGE\n", "70 7", "70 4"));
    EXPECT_NE(checkRecords(readDrawing(off)).at(0).text.find("set code 70 to 7"), std::string::npos);
    EXPECT_EQ(findingsOf(changed("0 IMAGE\n", "70 7", "70 7\n60 1")), Texts{"switched-off IMAGE 8A"});
    EXPECT_EQ(findingsOf(changed("0 IMAGE\n", "70 7\n", "")), none);
}

TEST(DrawingCheck, SeenObliquely) {
    const std::string hidden = changed("0 IMAGE\n", "70 7", "70 5");
    EXPECT_EQ(findingsOf(hidden), none); // lies flat under a view from above
    EXPECT_EQ(findingsOf(changed("0 VPORT\n", "2 *Active", "2 Other", hidden)), none);
    EXPECT_EQ(findingsOf(changed("0 VPORT\n", "16 0.0", "16 nowhere", hidden)), none);
    const Texts found{"hidden-obliquely IMAGE 8A"};
    EXPECT_EQ(findingsOf(changed("0 VPORT\n", "16 0.0", "16 1.0", hidden)), found);
    EXPECT_EQ(findingsOf(changed("0 VPORT\n", "16 0.0", "16 1.0",
                                 changed("0 IMAGE\n", "70 5", "70 5\n67 1", hidden))),
              none); // on paper
    const std::string upright =
        changed("0 IMAGE\n", "32 0.0", "32 0.01", changed("0 IMAGE\n", "22 0.01", "22 0.0", hidden));
    EXPECT_EQ(findingsOf(upright), found);
    EXPECT_EQ(findingsOf(changed("0 IMAGE\n", "70 5", "70 3", upright)), none);
}

TEST(DrawingCheck, Layers) {
    EXPECT_EQ(findingsOf(changed("0 LAYER\n", "70 0", "70 1")), Texts{"hidden-layer LAYER 10"});
    EXPECT_EQ(findingsOf(changed("0 LAYER\n", "62 7", "62 -7")), Texts{"hidden-layer LAYER 10"});
    EXPECT_EQ(findingsOf(changed("0 LAYER\n", "2 Pictures\n70 0", "2 Others\n70 1")), none);
    const std::string onLayer0 = changed("0 IMAGE\n", "8 PICTURES", "8 0");
    EXPECT_EQ(findingsOf(changed("0 LAYER\n", "2 Pictures\n70 0", "2 0\n70 1", onLayer0)),
              Texts{"hidden-layer LAYER 10"});
    EXPECT_EQ(findingsOf(changed("0 LAYER\n", "70 0", "70 2")), none); // in new viewports only
}

TEST(DrawingCheck, BlocksThatAreNotInserted) {
    const std::size_t start = goodPairs.find("0 IMAGE\n5 8A");
    const std::string image(goodPairs.substr(start, goodPairs.find("0 ENDSEC", start) - start));
    const std::string inBlock =
        changed("0 BLOCK\n", "0 ENDBLK", image + "0 ENDBLK", changed("0 IMAGE\n5 8A", image, ""));
    EXPECT_EQ(findingsOf(inBlock), Texts{"not-inserted BLOCK 22"});
    EXPECT_EQ(findingsOf(changed("2 ENTITIES", "ENTITIES\n", "ENTITIES\n0 INSERT\n2 SHEET\n", inBlock)),
              none);
    EXPECT_EQ(findingsOf(changed("2 ENTITIES", "ENTITIES\n", "ENTITIES\n0 MULTILEADER\n344 21\n", inBlock)),
              none);
    EXPECT_EQ(findingsOf(changed("2 *Model_Space", "2 *Model_Space\n", "2 *Model_Space\n1005 21\n", inBlock)),
              none);
    EXPECT_EQ(findingsOf(changed("0 BLOCK\n", "2 Sheet", "2 *Paper_Space0", inBlock)), none);
    // What lies on layer 0 of a block lies on that of the insertion.
    const std::string onLayer0 = changed("2 ENTITIES", "ENTITIES\n", "ENTITIES\n0 INSERT\n2 SHEET\n",
                                         changed("0 LAYER\n", "2 Pictures\n70 0", "2 0\n70 1",
                                                 changed("0 IMAGE\n5", "PICTURES", "0", inBlock)));
    EXPECT_EQ(findingsOf(onLayer0), none);
}

TEST(DrawingCheck, Extent) {
    const Texts found{"no-extent IMAGE 8A"};
    EXPECT_EQ(findingsOf(changed("0 IMAGE\n", "11 0.01", "11 0")), found);
    EXPECT_EQ(findingsOf(changed("0 IMAGE\n", "12 0.0\n22 0.01", "12 0.02\n22 0")), found);
    EXPECT_EQ(findingsOf(changed("0 IMAGE\n", "11 0.01", "11 inf")), found);
    EXPECT_EQ(findingsOf(changed("0 IMAGE\n", "13 17.0", "13 nan")), found);
    EXPECT_EQ(findingsOf(changed("0 IMAGEDEF\n", "10 17.0", "10 0", changed("0 IMAGE\n", "13 17.0", "13 0"))),
              found);
}

TEST(DrawingCheck, PixelCountsOfImageAndDefinition) {
    EXPECT_EQ(findingsOf(changed("0 IMAGE\n", "13 17.0", "13 18")), Texts{"pixel-count IMAGE 8A"});
    EXPECT_EQ(findingsOf(changed("0 IMAGEDEF\n", "20 9.0", "20 10")), Texts{"pixel-count IMAGE 8A"});
    EXPECT_EQ(findingsOf(changed("0 IMAGE\n", "13 17.0", "13 16.999999")), none);
}

TEST(DrawingCheck, CutDrawingIsBlamedForNothingElse) {
    const Texts cut{"cut-short  "};
    const std::string whole = textOf(std::string(goodPairs));
    for (std::size_t size = 0; size < whole.find("0\nEOF") + 5; ++size) {
        Texts found;
        for (const Finding& finding : checkRecords(readDrawing(whole.substr(0, size))))
            found.push_back(shown(finding));
        EXPECT_EQ(found, cut) << size;
    }
    // What stands in it stays wrong.
    const std::string flat = changed("0 IMAGE\n", "11 0.01", "11 0");
    EXPECT_EQ(findingsOf(flat.substr(0, flat.find("0 IMAGEDEF\n5"))),
              (Texts{"no-extent IMAGE 8A", "cut-short  "}));
}

TEST(DrawingCheck, DamagedText) {
    const DxfDrawing broken = readDrawing("0\nSECTION\n2\nENTITIES\n0\nLINE\n\n8\n0\n0\nENDSEC\n0\nEOF\n");
    const std::vector<Finding> findings = checkRecords(broken);
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(findings[0].kind, FindingKind::Damaged);
    EXPECT_EQ(findings[0].line, 7U);
    EXPECT_EQ(findingsOf(changed("0 ENDSEC", "0 ENDSEC\n", "")), Texts{"damaged  "});
    EXPECT_EQ(findingsOf(changed("2 OBJECTS", "2 OBJECTS", "x OBJECTS")),
              Texts{"damaged  "});                                        // not for what follows
    EXPECT_EQ(findingsOf("0 LINE\n0 LINE\n0 EOF\n"), Texts{"damaged  "}); // the first of them is enough
}

TEST(DrawingCheck, FindingsStandInOrderOfWeightAndSayWhere) {
    std::string pairs = changed("0 IMAGE\n", "70 7", "70 6");
    pairs = changed("0 IMAGE\n", "14 16.5", "14 -0.5", pairs);
    pairs = changed("0 IMAGE\n", "13 17.0", "13 18", pairs);
    pairs = changed("0 DICTIONARY", "350 5A", "350 5B", pairs);
    EXPECT_EQ(findingsOf(pairs), (Texts{"no-image-dictionary DICTIONARY C", "empty-clip-boundary IMAGE 8A",
                                        "switched-off IMAGE 8A", "pixel-count IMAGE 8A"}));
    const std::vector<Finding> findings = checkRecords(readDrawing(textOf(pairs)));
    EXPECT_EQ(findings[1].line, 115U);
    EXPECT_NE(findings[1].text.find("; write"), std::string::npos);
}

TEST(DrawingCheck, FindingsOfAKindStandInOrderOfLines) {
    std::vector<Finding> findings{{FindingKind::NoFile, "B", "", 3, ""},
                                  {FindingKind::NoFile, "A", "", 2, ""},
                                  {FindingKind::BrokenRing, "C", "", 4, ""}};
    sortByWeight(findings);
    EXPECT_EQ(findings[0].record + findings[1].record + findings[2].record, "CAB");
}

TEST(DrawingCheck, EveryKindHasItsName) {
    std::vector<std::string_view> names;
    for (int kind = 0; kind <= static_cast<int>(FindingKind::CutShort); ++kind)
        names.push_back(kindName(static_cast<FindingKind>(kind)));
    EXPECT_EQ(names,
              (std::vector<std::string_view>{
                  "no-image-dictionary", "class-count", "broken-ring", "empty-clip-boundary", "shared-handle",
                  "hidden-obliquely", "switched-off", "hidden-layer", "not-inserted", "no-extent", "no-file",
                  "file-missing", "unreadable-file", "pixel-count", "damaged", "cut-short"}));
}

} // namespace rasterplan_tool
