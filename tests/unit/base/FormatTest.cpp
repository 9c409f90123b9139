#include "base/Format.h"

#include "base/Error.h"

#include <gtest/gtest.h>

using ZelkBase::Error;
using ZelkBase::format;
using ZelkBase::Text;

TEST(Format, ReplacesNumberedPlaceholders) {
    EXPECT_EQ(format(L"zero vector in %k01 (%k02, line %k03)",
                     {L"MathVector3d::normalize", L"zelkmath\\pub_mathvector3d", Text(85)}),
              Text(L"zero vector in MathVector3d::normalize (zelkmath\\pub_mathvector3d, line 85)"));
}

TEST(Format, PlaceholdersMayStandInAnyOrderAndRepeat) {
    EXPECT_EQ(format(L"%k02%k01%k02", {L"a", L"b"}), Text(L"bab"));
    EXPECT_EQ(format(L"none", {L"a"}), Text(L"none"));
    EXPECT_EQ(format(L"", {}), Text());
}

TEST(Format, NumberHasTwoDigits) {
    EXPECT_EQ(format(L"%k101", {L"1", L"2", L"3", L"4", L"5", L"6", L"7", L"8", L"9", L"ten"}),
              Text(L"ten1"));
    EXPECT_EQ(format(L"%k012", {L"one"}), Text(L"one2"));
}

TEST(Format, NumberWithoutArgumentThrows) {
    for (const wchar_t* text : {L"%k03", L"%k00", L"%k01 %k99"}) {
        try {
            format(text, {L"a", L"b"});
            ADD_FAILURE() << "no error for " << Text(text).utf8();
        } catch (const Error& error) {
            EXPECT_EQ(error.message(), Text(L"Format string has invalid list of arguments"));
        }
    }
    EXPECT_THROW(format(L"%k01", {}), Error);
}

TEST(Format, EvenCountOfPercentSignsEscapes) {
    EXPECT_EQ(format(L"%%k01", {L"a"}), Text(L"%%k01"));
    EXPECT_EQ(format(L"%%%k01", {L"a"}), Text(L"%%a"));
    EXPECT_EQ(format(L"%%%%k01", {L"a"}), Text(L"%%%%k01"));
    EXPECT_EQ(format(L"x%%k09%k01", {L"a"}), Text(L"x%%k09a"));
    EXPECT_EQ(format(L"100% %k01", {L"a"}), Text(L"100% a"));
}

TEST(Format, OtherCharactersBehindTheLetterStayAsTheyAre) {
    EXPECT_EQ(format(L"%kab %k0x %k%k01", {L"a"}), Text(L"%kab %k0x %ka"));
    EXPECT_EQ(format(L"%k-1 %K01", {L"a"}), Text(L"%k-1 %K01"));
    EXPECT_EQ(format(L"%k1x %k1", {L"a"}), Text(L"%k1x %k1"));
    EXPECT_EQ(format(L"%k\u0661\u0661", {L"a"}), Text(L"%k\u0661\u0661"));
}

TEST(Format, EndsWhereThePlaceholderIsCutOff) {
    EXPECT_EQ(format(L"%k01%k0", {L"a"}), Text(L"a%k0"));
    EXPECT_EQ(format(L"%k", {L"a"}), Text(L"%k"));
}

TEST(Format, ArgumentsAreNotReadAsFormats) {
    EXPECT_EQ(format(L"%k01%k02", {L"%k02", L"b"}), Text(L"%k02b"));
    EXPECT_EQ(format(L"%k01k02", {L"%", L"b"}), Text(L"%k02"));
}

TEST(Format, PercentSignsOfAnArgumentCountBeforeTheNextPlaceholder) {
    EXPECT_EQ(format(L"%k01%k02", {L"100%", L"b"}), Text(L"100%%k02"));
    EXPECT_EQ(format(L"%k01%k02", {L"100%%", L"b"}), Text(L"100%%b"));
    EXPECT_EQ(format(L"%k01%%k02", {L"100%", L"b"}), Text(L"100%%b"));
    EXPECT_EQ(format(L"%k01 %k02", {L"100%", L"b"}), Text(L"100% b"));
    EXPECT_EQ(format(L"%k01%k99", {L"%", L"b"}), Text(L"%%k99"));
}

TEST(Format, EmptyArgumentLeavesTheSignsBeforeIt) {
    EXPECT_EQ(format(L"%%%k01%k02", {L"", L"b"}), Text(L"%%b"));
    EXPECT_EQ(format(L"%%%k01%%k02", {L"", L"b"}), Text(L"%%%%k02"));
}
