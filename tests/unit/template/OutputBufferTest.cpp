#include "template/OutputBuffer.h"

#include "support/WrittenBytes.h"

#include <gtest/gtest.h>

#include <cstring>
#include <stdexcept>
#include <string>
#include <string_view>

using namespace rasterplan;
using namespace rasterplan::test;

TEST(OutputBuffer, KeepsBytesAsTheyAre) {
    const std::string bytes("a\nb\r\n\0\xFF\x80", 8);
    EXPECT_EQ(writtenBytes([&](OutputBuffer& out) { out.append(bytes); }), bytes);
    EXPECT_EQ(writtenBytes([](OutputBuffer& out) { out.append(std::string_view()); }), "");
}

TEST(OutputBuffer, WritesTextAsUtf8) {
    EXPECT_EQ(writtenBytes([](OutputBuffer& out) { out.appendText(L"Gr\u00F6\u00DFe \u20AC"); }),
              "Gr\xC3\xB6\xC3\x9F"
              "e \xE2\x82\xAC");
}

TEST(OutputBuffer, WritesLineFeedsOfTextAsLineEnds) {
    EXPECT_EQ(writtenBytes([](OutputBuffer& out) { out.appendText(L"a\nb\n\n"); }), "a\r\nb\r\n\r\n");
    EXPECT_EQ(writtenBytes([](OutputBuffer& out) { out.appendText(L"a\rb"); }), "a\rb");
}

TEST(OutputBuffer, RefusesCharactersBeyondUnicode) {
    if (sizeof(wchar_t) == 2)
        GTEST_SKIP() << "every wide character converts here";
    const std::wstring text = {L'a', static_cast<wchar_t>(0x110000)};
    writtenBytes([&](OutputBuffer& out) { EXPECT_THROW(out.appendText(text), std::range_error); });
}

TEST(OutputBuffer, WritesWhatIsPutIntoReservedRoom) {
    EXPECT_EQ(writtenBytes([](OutputBuffer& out) {
                  char* const room = out.reserve(10);
                  std::memcpy(room, "abc", 3);
                  out.commit(room + 3);
                  out.reserve(OutputBuffer::blockSize);
                  out.append("d");
              }),
              "abcd");
}

TEST(OutputBuffer, LosesNothingAtTheEdgesOfABlock) {
    constexpr std::size_t block = OutputBuffer::blockSize;
    for (const std::size_t first : {block - 4, block - 1, block}) {
        const std::string before(first, 'x');
        const std::string bytes = writtenBytes([&](OutputBuffer& out) {
            out.append(before);
            out.appendText(L"\u20AC\n");
            out.append("end");
        });
        EXPECT_EQ(bytes, before + "\xE2\x82\xAC\r\nend") << first;
    }
}

TEST(OutputBuffer, FillsABlockToItsLastByte) {
    for (std::size_t rest = 0; rest <= 4; ++rest) {
        const std::string before(OutputBuffer::blockSize - rest, 'x');
        const std::string bytes = writtenBytes([&](OutputBuffer& out) {
            out.append(before);
            out.append("abc");
        });
        EXPECT_EQ(bytes, before + "abc") << rest;
    }
}

TEST(OutputBuffer, LosesNothingOfALongText) {
    std::wstring text;
    std::string bytes;
    for (std::size_t i = 0; i < OutputBuffer::blockSize / 2; ++i) {
        text += i % 100 == 99 ? L"\n" : L"\u20AC";
        bytes += i % 100 == 99 ? "\r\n" : "\xE2\x82\xAC";
    }
    EXPECT_EQ(writtenBytes([&](OutputBuffer& out) { out.appendText(text); }), bytes);
}

TEST(OutputBuffer, CountsTheBytesAppended) {
    writtenBytes([](OutputBuffer& out) {
        EXPECT_EQ(out.count(), 0u);
        out.appendText(L"\u20AC\n");
        EXPECT_EQ(out.count(), 5u);
        out.append(std::string(OutputBuffer::blockSize, 'x'));
        EXPECT_EQ(out.count(), 5u + OutputBuffer::blockSize);
        out.reserve(100);
        EXPECT_EQ(out.count(), 5u + OutputBuffer::blockSize);
    });
}

TEST(OutputBuffer, FailedWriteIsNotReported) {
    const TestFolder folder;
    writeBytes(folder / "empty", "");
    {
        const File file = openForReading(folder / "empty");
        ASSERT_TRUE(file);
        OutputBuffer out(file.get());
        for (int block = 0; block < 3; ++block)
            EXPECT_NO_THROW(out.append(std::string(OutputBuffer::blockSize, 'x')));
    }
    EXPECT_EQ(readBytes(folder / "empty"), "");
}
