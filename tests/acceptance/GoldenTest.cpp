#include "HostFolder.h"
#include "host/Scene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <sstream>
#include <string>

namespace {

using namespace rasterplan::test;

constexpr const char* scenes[] = {
    "emoji",  "flat-parallel", "flat-proposed", "flat-scaled", "flat-turned",       "one",
    "paths",  "second-write",  "several",       "survey",      "template-with-end", "template-without-end",
    "turned", "upright",
};

std::filesystem::path golden(const std::string& file) {
    return pathFromUtf8(RASTERPLAN_GOLDEN) / pathFromUtf8(file);
}

// What the first lines that differ are; empty when there are none.
std::string firstDifference(const std::string& expected, const std::string& found) {
    std::istringstream left(expected);
    std::istringstream right(found);
    for (int number = 1; left || right; ++number) {
        std::string a;
        std::string b;
        std::getline(left, a);
        std::getline(right, b);
        if (a != b)
            return "line " + std::to_string(number) + ": " + b + "\ninstead of " + a;
    }
    return expected == found ? "" : "a line end";
}

// The UTF-8 of a character beyond the basic plane becomes that of its two halves.
std::string withHalvesEncodedAlone(const std::string& bytes) {
    const auto threeBytes = [](unsigned unit) {
        return std::string{static_cast<char>(0xE0 | unit >> 12), static_cast<char>(0x80 | (unit >> 6 & 0x3F)),
                           static_cast<char>(0x80 | (unit & 0x3F))};
    };
    const auto bits = [&](std::size_t at, unsigned mask) {
        return static_cast<unsigned char>(bytes[at]) & mask;
    };
    std::string result;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (bits(i, 0xF8) != 0xF0) {
            result += bytes[i];
            continue;
        }
        const unsigned point =
            bits(i, 7) << 18 | bits(i + 1, 0x3F) << 12 | bits(i + 2, 0x3F) << 6 | bits(i + 3, 0x3F);
        result +=
            threeBytes(0xD800 + ((point - 0x10000) >> 10)) + threeBytes(0xDC00 + ((point - 0x10000) & 0x3FF));
        i += 3;
    }
    return result;
}

std::string expectedDrawing(const std::string& name) {
    const std::string bytes = readBytes(golden(name + ".dxf"));
    return sizeof(wchar_t) == 2 ? withHalvesEncodedAlone(bytes) : bytes;
}

class Golden : public ::testing::TestWithParam<const char*> {};

std::string testNameOf(const ::testing::TestParamInfo<const char*>& info) {
    std::string name = info.param;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

} // namespace

TEST_P(Golden, DrawingHasTheGoldenBytes) {
    const std::string name = GetParam();
    const std::string scene = readBytes(golden(name + ".scene"));
    std::string found;
    if (exists(golden(name + ".template"))) {
        const HostFolder host(readBytes(golden(name + ".template")));
        const HostRun run = host.play(scene);
        ASSERT_EQ(run.status, 0) << run.err;
        found = host.drawing();
    } else {
        const TestFolder folder;
        std::ostringstream log;
        playScene(scene, folder / "drawing.dxf", log);
        found = readBytes(folder / "drawing.dxf");
    }
    EXPECT_EQ(firstDifference(expectedDrawing(name), found), "");
}

INSTANTIATE_TEST_SUITE_P(Scenes, Golden, ::testing::ValuesIn(scenes), testNameOf);

TEST(GoldenScenes, AllAreCompared) {
    std::set<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(golden(".")))
        if (entry.path().extension() == ".scene")
            found.insert(utf8FromPath(entry.path().stem()));
    EXPECT_EQ(found, std::set<std::string>(std::begin(scenes), std::end(scenes)));
}

TEST(GoldenScenes, HalvesOfTheEmojiDifferOnlyWhereItStands) {
    EXPECT_EQ(withHalvesEncodedAlone("a\xC3\xA4\xF0\x9F\x8F\xA0z"), "a\xC3\xA4\xED\xA0\xBC\xED\xBF\xA0z");
    const std::string bytes = readBytes(golden("emoji.dxf"));
    EXPECT_EQ(withHalvesEncodedAlone(bytes).size(),
              bytes.size() + std::size_t{2} * 4); // two characters, named twice
}
