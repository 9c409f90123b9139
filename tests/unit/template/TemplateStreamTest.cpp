#include "template/TemplateStream.h"

#include "platform/File.h"
#include "template/OutputBuffer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <functional>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace {

using namespace rasterplan;

File temporaryFile() {
    File file(std::tmpfile());
    if (!file)
        throw std::runtime_error("cannot make a temporary file");
    return file;
}

struct Streamed {
    bool complete;
    std::string bytes;

    friend bool operator==(const Streamed&, const Streamed&) = default;
    friend void PrintTo(const Streamed& streamed, std::ostream* out) {
        *out << (streamed.complete ? "complete " : "stopped ") << ::testing::PrintToString(streamed.bytes);
    }
};

using Expand = std::function<void(TopLevelKey, OutputBuffer&)>;

// Expands each key to "<number of the key>".
void expandToNumber(TopLevelKey key, OutputBuffer& out) {
    out.append('<' + std::to_string(static_cast<int>(key)) + ">\r\n");
}

Streamed streamed(std::string_view templateText, const Expand& expand = expandToNumber) {
    const File source = temporaryFile();
    std::fwrite(templateText.data(), 1, templateText.size(), source.get());
    std::rewind(source.get());
    const File output = temporaryFile();
    Streamed result{};
    {
        OutputBuffer buffer(output.get());
        result.complete = streamTemplate(source.get(), buffer, [&](TopLevelKey key) { expand(key, buffer); });
    }
    std::rewind(output.get());
    char block[4096];
    while (const std::size_t size = std::fread(block, 1, sizeof block, output.get()))
        result.bytes.append(block, size);
    return result;
}

Streamed complete(std::string bytes) {
    return {true, std::move(bytes)};
}

Streamed stopped(std::string bytes) {
    return {false, std::move(bytes)};
}

// `count` letters, then `end`.
std::string line(std::size_t count, std::string_view end) {
    std::string text(count, 'x');
    text += end;
    return text;
}

std::string deliveredTemplate() {
    std::ifstream file(RASTERPLAN_TEMPLATE_FILE, std::ios::binary);
    if (!file)
        throw std::runtime_error("cannot open " RASTERPLAN_TEMPLATE_FILE);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

TEST(TemplateStream, LastLineMayHaveNoEnd) {
    EXPECT_EQ(streamed("0\nEOF"), complete("0\r\nEOF\r\n"));
    EXPECT_EQ(streamed("0\n#VEXO_HEADER_EXTMIN#"), complete("0\r\n<0>\r\n"));
}

TEST(TemplateStream, WhatFollowsTheLastLineEndIsAnEmptyLine) {
    EXPECT_EQ(streamed("0\nEOF\n"), complete("0\r\nEOF\r\n\r\n"));
    EXPECT_EQ(streamed("#VEXO_HEADER_EXTMIN#\n"), complete("<0>\r\n\r\n"));
    EXPECT_EQ(streamed("\n"), complete("\r\n\r\n"));
}

TEST(TemplateStream, EmptyTemplateIsOneEmptyLine) {
    EXPECT_EQ(streamed(""), complete("\r\n"));
}

TEST(TemplateStream, LineEndsOfBothKindsAreOne) {
    EXPECT_EQ(streamed("a\r\nb\nc\r\n"), complete("a\r\nb\r\nc\r\n\r\n"));
    EXPECT_EQ(streamed("#VEXO_HEADER_EXTMIN#\r\n#VEXO_HEADER_EXTMAX#\n0"), complete("<0>\r\n<1>\r\n0\r\n"));
}

TEST(TemplateStream, CarriageReturnElsewhereStaysInTheLine) {
    EXPECT_EQ(streamed("a\rb\r\r\nc\r"), complete("a\rb\r\r\nc\r\r\n"));
    EXPECT_EQ(streamed("#VEXO_HEADER_EXTMIN#\r"), stopped(""));
    EXPECT_EQ(streamed("#VEXO_HEADER_EXTMIN#\r\r\n"), stopped(""));
}

TEST(TemplateStream, NothingIsTrimmed) {
    EXPECT_EQ(streamed("  0\t\n\tSECTION  \n"), complete("  0\t\r\n\tSECTION  \r\n\r\n"));
}

TEST(TemplateStream, EveryKeyIsExpandedInItsPlace) {
    std::string text;
    std::string expected;
    for (std::size_t i = 0; i < topLevelKeyTexts.size(); ++i) {
        text += std::string(topLevelKeyTexts[i]) + "\n-\n";
        expected += '<' + std::to_string(i) + ">\r\n-\r\n";
    }
    EXPECT_EQ(streamed(text), complete(expected + "\r\n"));
}

TEST(TemplateStream, KeyTwiceIsExpandedTwice) {
    EXPECT_EQ(streamed("#VEXO_TABLE_VPORT#\n#VEXO_TABLE_VPORT#"), complete("<7>\r\n<7>\r\n"));
}

TEST(TemplateStream, LineThatIsNoKeyStopsWhereItStands) {
    for (const char* key : {"#", "##", "#VEXO_ENTITY_IMAGE# ", "#VEXO_ENTITY_IMAGE#1", "#VEXO_ENTITY_IMAGE",
                            "#vexo_entity_image#", "# remark", "#VEXO_\xC3\x84#", "#VEXO_\xFF#"})
        EXPECT_EQ(streamed("0\n" + std::string(key) + "\nEOF"), stopped("0\r\n")) << key;
}

TEST(TemplateStream, KeyWithoutRecordsStopsWhereItStands) {
    EXPECT_EQ(streamed("0\n#VEXO_ENTITY_LINE#\nEOF", [](TopLevelKey, OutputBuffer&) {}), stopped("0\r\n"));
}

TEST(TemplateStream, WhatTheExpansionThrowsPassesThrough) {
    const Expand fail = [](TopLevelKey, OutputBuffer&) { throw std::range_error("a character"); };
    EXPECT_THROW(streamed("0\n#VEXO_ENTITY_LINE#\nEOF", fail), std::range_error);
}

TEST(TemplateStream, NumberSignBehindABlankIsText) {
    EXPECT_EQ(streamed(" #VEXO_HEADER_EXTMIN#"), complete(" #VEXO_HEADER_EXTMIN#\r\n"));
}

TEST(TemplateStream, EveryByteIsCopied) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte)
        if (byte != '\n')
            bytes += static_cast<char>(byte);
    EXPECT_EQ(streamed(bytes), complete(bytes + "\r\n"));
}

TEST(TemplateStream, LineOf511BytesIsWhole) {
    for (const char* end : {"\n", "\r\n"}) {
        EXPECT_EQ(streamed(line(511, end) + "EOF"), complete(line(511, "\r\nEOF\r\n")));
        EXPECT_EQ(streamed(line(510, end) + "EOF"), complete(line(510, "\r\nEOF\r\n")));
    }
    EXPECT_EQ(streamed(line(511, "")), complete(line(511, "\r\n")));
}

TEST(TemplateStream, LongerLineIsCutAndStopsThere) {
    for (const std::size_t length : {512u, 513u, 4096u, 5000u, 20000u}) {
        for (const char* end : {"\n", "\r\n", ""})
            EXPECT_EQ(streamed("0\n" + line(length, end) + "EOF"), stopped("0\r\n" + line(511, "\r\n")))
                << length;
    }
    EXPECT_EQ(streamed(line(512, "")), stopped(line(511, "\r\n")));
}

TEST(TemplateStream, CarriageReturnThatEndsNoLineCounts) {
    EXPECT_EQ(streamed(line(510, "\r\r\n") + "EOF"), complete(line(510, "\r\r\nEOF\r\n")));
    EXPECT_EQ(streamed(line(511, "\r\r\n") + "EOF"), stopped(line(511, "\r\n")));
    EXPECT_EQ(streamed(line(511, "\r")), stopped(line(511, "\r\n")));
}

TEST(TemplateStream, KeyAtTheBeginningOfALongerLineIsNone) {
    EXPECT_EQ(streamed("#VEXO_HEADER_EXTMIN#" + line(600, "\n")), stopped(""));
}

TEST(TemplateStream, LinesMayEndAnywhereInTheBlocksThatAreRead) {
    for (std::size_t before = 4080; before <= 4100; ++before) {
        std::string text;
        std::string expected;
        for (std::size_t rest = before; rest > 0;) {
            const std::size_t length = std::min<std::size_t>(rest, 100);
            rest -= length;
            text += std::string(length - 1, 'y');
            expected += text.substr(text.size() - (length - 1)) + "\r\n";
            text += '\n';
        }
        text += "z\r\n#VEXO_HEADER_EXTMAX#\r\nEOF";
        expected += "z\r\n<1>\r\nEOF\r\n";
        EXPECT_EQ(streamed(text), complete(expected)) << before;
    }
}

// Cut anywhere, a template gives the beginning of its drawing: all of its lines, and then either the line
// that was cut, or, where a key was cut, the end.
TEST(TemplateStream, TemplateCutAtAnyByteGivesTheDrawingsBeginning) {
    const std::string whole = deliveredTemplate();
    ASSERT_GT(whole.size(), 1000u);
    std::string before; // what the lines before the cut one give
    std::size_t lineBegin = 0;
    for (std::size_t cut = 0; cut <= whole.size(); ++cut) {
        if (cut > 0 && whole[cut - 1] == '\n') {
            before = streamed(std::string_view(whole).substr(0, cut - 1)).bytes;
            lineBegin = cut;
        }
        const std::string rest = whole.substr(lineBegin, cut - lineBegin);
        const Streamed found = streamed(std::string_view(whole).substr(0, cut));
        if (const auto key = findTopLevelKey(rest))
            ASSERT_EQ(found, complete(before + '<' + std::to_string(static_cast<int>(*key)) + ">\r\n"))
                << cut;
        else if (rest.starts_with('#'))
            ASSERT_EQ(found, stopped(before)) << cut;
        else
            ASSERT_EQ(found, complete(before + rest + "\r\n")) << cut;
    }
}

TEST(TemplateStream, SourceThatCannotBeReadStops) {
    const std::string path = ::testing::TempDir() + "TemplateStream.tmp";
    const File output = temporaryFile();
    File writeOnly(std::fopen(path.c_str(), "wb"));
    ASSERT_TRUE(writeOnly);
    const bool known = std::fgetc(writeOnly.get()) == EOF && std::ferror(writeOnly.get());
    std::clearerr(writeOnly.get());

    OutputBuffer buffer(output.get());
    const bool complete = streamTemplate(writeOnly.get(), buffer, [](TopLevelKey) {});
    writeOnly.reset();
    std::remove(path.c_str());
    if (!known)
        GTEST_SKIP() << "here a file that may not be read looks like an empty one";
    EXPECT_FALSE(complete);
    EXPECT_EQ(buffer.count(), 0u);
}
