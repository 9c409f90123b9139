#include "ExportedDrawing.h"
#include "support/StructureWalk.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace rasterplan::test;

using Findings = std::vector<std::string>;

// Upright pictures beside, above and behind each other, all facing the same way.
std::vector<ImageParam> facade(int count) {
    std::vector<ImageParam> images;
    for (int i = 0; i < count; ++i) {
        const double x = 3.5 * (i % 20);
        const double y = 0.25 * (i % 3);
        const int row = i / 20;
        const double z = 2.75 * row;
        images.push_back(imageAt({x, y, z + 2.5}, {x, y, z}, {x + 3.0, y, z}));
    }
    return images;
}

// The first `from` becomes `to`. Fails the test when there is none: then nothing was broken.
std::string replaced(std::string text, const std::string& from, const std::string& to) {
    const std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

std::string pairOf(int code, const std::string& value) {
    return std::to_string(code) + "\r\n" + value + "\r\n";
}

// The text of the first record that begins with these pairs, up to the next record.
std::string recordText(const std::string& drawing, const std::string& begin) {
    std::size_t start = std::string::npos;
    for (std::size_t at = 0; at < drawing.size();) {
        const bool isRecord = drawing.compare(at, 3, "0\r\n") == 0;
        if (isRecord && start != std::string::npos)
            return drawing.substr(start, at - start);
        if (isRecord && drawing.compare(at, begin.size(), begin) == 0)
            start = at;
        at = drawing.find('\n', drawing.find('\n', at) + 1) + 1;
    }
    ADD_FAILURE() << "no record begins with " << begin;
    return {};
}

std::string firstRecord(const std::string& drawing, const std::string& type) {
    return recordText(drawing, pairOf(0, type));
}

class Structure : public ::testing::TestWithParam<int> {};

// Breaks a good drawing of two images in one way at a time.
class BrokenStructure : public ::testing::Test {
protected:
    const std::string good = exported3D(facade(2)).bytes;
    // Two images have twelve lines, 7E to 89; then 8A, 8B, 8C and 8D, 8E, 8F belong to the images.
    const std::string image = firstRecord(good, "IMAGE");
    const std::string definition = firstRecord(good, "IMAGEDEF");
    const std::string reactor = firstRecord(good, "IMAGEDEF_REACTOR");

    static Findings findings(const std::string& drawing) {
        return structureFindings(drawing, framedImages(2));
    }

    // The good drawing with one record changed.
    std::string with(const std::string& record, const std::string& from, const std::string& to) const {
        return replaced(good, record, replaced(record, from, to));
    }
};

} // namespace

TEST_P(Structure, OfADrawingInSpaceIsWhole) {
    const auto count = static_cast<std::size_t>(GetParam());
    EXPECT_EQ(structureFindings(exported3D(facade(GetParam())).bytes, framedImages(count)), Findings());
}

TEST_P(Structure, OfAFlattenedDrawingIsWhole) {
    const auto count = static_cast<std::size_t>(GetParam());
    EXPECT_EQ(structureFindings(exported2D(facade(GetParam())).bytes, framedImages(count)), Findings());
}

INSTANTIATE_TEST_SUITE_P(Images, Structure, ::testing::Values(1, 3, 18, 500));

TEST_F(BrokenStructure, GoodDrawingHasNoFinding) {
    EXPECT_EQ(findings(good), Findings());
}

TEST_F(BrokenStructure, LineEnds) {
    EXPECT_NE(findings(replaced(good, "AC1024\r\n", "AC1024\n")), Findings());
    EXPECT_NE(findings(replaced(good, "AC1024\r\n", "AC10\r24\r\n")), Findings());
    EXPECT_NE(findings(good.substr(0, good.size() - 2)), Findings());
    std::string onlyLineFeeds = good;
    std::erase(onlyLineFeeds, '\r');
    EXPECT_NE(findings(onlyLineFeeds), Findings());
}

TEST_F(BrokenStructure, Pairs) {
    EXPECT_NE(findings(replaced(good, "AC1024\r\n", "AC1024\r\n\r\n")), Findings());
    EXPECT_NE(findings(replaced(good, "AC1024\r\n", "")), Findings());
    EXPECT_NE(findings(replaced(good, "EOF\r\n", "EOF\r\nmore\r\n")), Findings());
}

TEST_F(BrokenStructure, Values) {
    EXPECT_NE(findings(replaced(good, pairOf(281, "50"), pairOf(281, "50.0"))), Findings());
    EXPECT_NE(findings(with(image, "\r\n10\r\n", "\r\n10\r\nx")), Findings());
    EXPECT_NE(findings(with(image, pairOf(5, "8A"), pairOf(5, "8a"))), Findings());
    EXPECT_NE(findings(with(image, pairOf(290, "0"), pairOf(290, "2"))), Findings());
}

TEST_F(BrokenStructure, SectionsAndEnd) {
    EXPECT_NE(findings(replaced(good, pairOf(0, "EOF"), "")), Findings());
    EXPECT_NE(findings(good.substr(0, good.find(image))), Findings());
    EXPECT_NE(findings(replaced(good, pairOf(2, "CLASSES"), pairOf(2, "OTHERS"))), Findings());
    EXPECT_NE(findings(""), Findings());
}

TEST_F(BrokenStructure, Handles) {
    EXPECT_NE(findings(with(image, pairOf(5, "8A"), pairOf(5, "7E"))), Findings());
    EXPECT_NE(findings(with(image, pairOf(5, "8A"), "")), Findings());
    EXPECT_NE(findings(with(firstRecord(good, "LINE"), pairOf(5, "7E"), pairOf(5, "90"))), Findings());
    EXPECT_NE(findings(replaced(good, "$HANDSEED\r\n5\r\n90", "$HANDSEED\r\n5\r\n8F")), Findings());
    EXPECT_NE(findings(replaced(good, "$HANDSEED", "$HANDSEEDS")), Findings());
}

TEST_F(BrokenStructure, Pointers) {
    EXPECT_NE(findings(with(firstRecord(good, "LAYER"), "330\r\n", "330\r\nFF")), Findings());
    EXPECT_NE(findings(with(image, pairOf(330, "2"), pairOf(330, "0"))), Findings());
    EXPECT_NE(findings(with(image, pairOf(330, "2"), pairOf(330, "17"))), Findings()); // the paper space
}

TEST_F(BrokenStructure, Dictionaries) {
    EXPECT_NE(findings(replaced(good, pairOf(3, "ACAD_IMAGE_DICT") + pairOf(350, "5A"), "")), Findings());
    EXPECT_NE(findings(replaced(good, pairOf(350, "5A"), pairOf(350, "9"))), Findings());
    EXPECT_NE(findings(replaced(good, pairOf(350, "8B"), pairOf(350, "8E"))), Findings());
    EXPECT_NE(findings(replaced(good, pairOf(3, "picture.png") + pairOf(350, "8B"), "")), Findings());
    EXPECT_NE(findings(replaced(good, pairOf(5, "5A") + pairOf(102, "{ACAD_REACTORS") + pairOf(330, "9"),
                                pairOf(5, "5A") + pairOf(102, "{ACAD_REACTORS") + pairOf(330, "30"))),
              Findings());
    const std::string root = firstRecord(good, "DICTIONARY");
    EXPECT_NE(findings(replaced(replaced(good, root, ""), definition, root + definition)), Findings());
}

TEST_F(BrokenStructure, RingOfImageDefinitionAndReactor) {
    EXPECT_NE(findings(with(image, pairOf(340, "8B"), pairOf(340, "8E"))), Findings());
    EXPECT_NE(findings(with(image, pairOf(340, "8B"), pairOf(340, "8C"))), Findings());
    EXPECT_NE(findings(with(image, pairOf(360, "8C"), pairOf(360, "8F"))), Findings());
    EXPECT_NE(findings(with(image, pairOf(360, "8C"), "")), Findings());
    EXPECT_NE(findings(with(definition, pairOf(330, "8C"), pairOf(330, "8F"))), Findings());
    EXPECT_NE(findings(with(definition, pairOf(330, "8C"), "")), Findings());
    EXPECT_NE(
        findings(with(definition, pairOf(102, "}") + pairOf(330, "5A"), pairOf(102, "}") + pairOf(330, "9"))),
        Findings());
    EXPECT_NE(findings(with(reactor, pairOf(330, "8A"), pairOf(330, "8D"))), Findings());
    EXPECT_NE(findings(with(reactor, pairOf(90, "2") + pairOf(330, "8A"), pairOf(90, "2"))), Findings());
}

TEST_F(BrokenStructure, ClassCounts) {
    for (const char* name : {"IMAGE", "IMAGEDEF", "IMAGEDEF_REACTOR"}) {
        const std::string record = recordText(good, pairOf(0, "CLASS") + pairOf(1, name));
        EXPECT_NE(findings(with(record, pairOf(91, "2"), pairOf(91, "0"))), Findings()) << name;
        EXPECT_NE(findings(with(record, name, "OTHER")), Findings()) << name;
    }
    EXPECT_NE(findings(replaced(good, pairOf(90, "2175"), pairOf(90, "2175") + pairOf(281, "0"))),
              Findings());
}

TEST_F(BrokenStructure, ClipBoundary) {
    EXPECT_NE(findings(with(image, pairOf(91, "2"), pairOf(91, "0"))), Findings());
    EXPECT_NE(findings(with(image, pairOf(71, "1"), pairOf(71, "2"))), Findings());
    EXPECT_NE(findings(with(image, pairOf(14, "299.50000000000000000"), pairOf(14, "-0.5"))), Findings());
    EXPECT_NE(findings(with(image, pairOf(24, "249.50000000000000000"), "")), Findings());
    EXPECT_NE(findings(with(image, pairOf(13, "300.00000000000000000"), pairOf(13, "0.0"))), Findings());
    EXPECT_NE(findings(with(definition, pairOf(20, "250.00000000000000000"), pairOf(20, "249.0"))),
              Findings());
    EXPECT_NE(findings(with(definition, pairOf(11, "10.00000000000000000"), pairOf(11, "0.0"))), Findings());
}

TEST_F(BrokenStructure, Counts) {
    EXPECT_NE(structureFindings(good, framedImages(1)), Findings());
    EXPECT_NE(structureFindings(good, framedImages(3)), Findings());
    EXPECT_NE(structureFindings(good, {2, 11}), Findings());
    EXPECT_NE(findings(replaced(good, firstRecord(good, "LINE"), "")), Findings());
    EXPECT_NE(findings(replaced(good, firstRecord(good, "VPORT"), "")), Findings());
    EXPECT_NE(findings(replaced(good, image, "")), Findings());
    EXPECT_NE(findings(replaced(good, definition, "")), Findings());
    EXPECT_NE(findings(replaced(good, reactor, "")), Findings());
}
