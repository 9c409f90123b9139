#include "template/SectionKey.h"

#include <gtest/gtest.h>

#include <string>

using namespace rasterplan;

TEST(SectionKey, NumberStandsBehindTheClosingSign) {
    EXPECT_EQ(SectionKey(TopLevelKey::entityImage).text(), L"#VEXO_ENTITY_IMAGE#");
    EXPECT_EQ(SectionKey(TopLevelKey::entityImage, 1).text(), L"#VEXO_ENTITY_IMAGE#1");
    EXPECT_EQ(SectionKey(TopLevelKey::objectImageDef, 120).text(), L"#VEXO_OBJECT_IMAGEDEF#120");
    EXPECT_EQ(SectionKey(TopLevelKey::entityLine, 2147483647).text(), L"#VEXO_ENTITY_LINE#2147483647");
}

TEST(SectionKey, IsReadFromItsText) {
    for (std::size_t i = 0; i < topLevelKeyTexts.size(); ++i) {
        for (const int number : {0, 1, 9, 10, 2147483647}) {
            const SectionKey key(static_cast<TopLevelKey>(i), number);
            const SectionKey read(key.text());
            EXPECT_TRUE(read.isValid());
            EXPECT_EQ(read.topLevelKey(), key.topLevelKey());
            EXPECT_EQ(read.number(), number);
            EXPECT_EQ(read, key);
        }
    }
}

TEST(SectionKey, OtherTextsAreNoKeys) {
    const std::wstring beyondDigits = {L'#', static_cast<wchar_t>(0x0131)}; // its low byte is the digit 1
    for (const std::wstring& text :
         {std::wstring(), std::wstring(L"#"), std::wstring(L"1"), std::wstring(L"#VEXO_ENTITY_IMAGE"),
          std::wstring(L"#VEXO_ENTITY_IMAGE#0"), std::wstring(L"#VEXO_ENTITY_IMAGE#01"),
          std::wstring(L"#VEXO_ENTITY_IMAGE#-1"), std::wstring(L"#VEXO_ENTITY_IMAGE#+1"),
          std::wstring(L"#VEXO_ENTITY_IMAGE#1 "), std::wstring(L"#VEXO_ENTITY_IMAGE# 1"),
          std::wstring(L"#VEXO_ENTITY_IMAGE#2147483648"), std::wstring(L"#VEXO_ENTITY_IMAGE##1"),
          std::wstring(L"#VEXO_ENTITY_CIRCLE#1"), L"#VEXO_ENTITY_IMAGE" + beyondDigits}) {
        const SectionKey key(text);
        EXPECT_FALSE(key.isValid()) << testing::PrintToString(text);
        EXPECT_EQ(key.text(), L"") << testing::PrintToString(text);
        EXPECT_EQ(key, SectionKey()) << testing::PrintToString(text);
    }
}

TEST(SectionKey, DefaultIsNoKey) {
    const SectionKey key;
    EXPECT_FALSE(key.isValid());
    EXPECT_EQ(key.text(), L"");
    EXPECT_NE(key, SectionKey(TopLevelKey::headerExtMin));
}

TEST(SectionKey, DiffersByKeyAndByNumber) {
    const SectionKey key(TopLevelKey::entityLine, 3);
    EXPECT_EQ(key, SectionKey(TopLevelKey::entityLine, 3));
    EXPECT_NE(key, SectionKey(TopLevelKey::entityLine, 4));
    EXPECT_NE(key, SectionKey(TopLevelKey::entityLine));
    EXPECT_NE(key, SectionKey(TopLevelKey::entityImage, 3));
}
