#include "template/Pair.h"

#include <gtest/gtest.h>

using namespace rasterplan;

namespace {

struct PairSample {
    double size;
};
using SamplePair = Pair<PairSample>;

} // namespace

TEST(Pair, IsCompleteWithCodeValueAndBothKeys) {
    EXPECT_TRUE((SamplePair{"0", "LINE", L"#VEXO_A#", L"#VEXO_B#"}.isComplete()));
    EXPECT_TRUE((SamplePair{"1071", "", L"#VEXO_A#", L"#VEXO_B#"}.isComplete()));
    EXPECT_TRUE((SamplePair{"40", &PairSample::size, L"#VEXO_A#", L"#VEXO_B2#"}.isComplete()));
}

TEST(Pair, IsIncompleteWhereSomethingIsMissingOrInAnothersPlace) {
    EXPECT_FALSE((SamplePair{"", "LINE", L"#VEXO_A#", L"#VEXO_B#"}.isComplete()));
    EXPECT_FALSE((SamplePair{"LINE", "0", L"#VEXO_A#", L"#VEXO_B#"}.isComplete()));
    EXPECT_FALSE((SamplePair{"-5", "LINE", L"#VEXO_A#", L"#VEXO_B#"}.isComplete()));
    EXPECT_FALSE((SamplePair{"0 ", "LINE", L"#VEXO_A#", L"#VEXO_B#"}.isComplete()));
    EXPECT_FALSE((SamplePair{"0", "LINE", L"", L"#VEXO_B#"}.isComplete()));
    EXPECT_FALSE((SamplePair{"0", "LINE", L"#VEXO_A#", L""}.isComplete()));
    for (const wchar_t* const key :
         {L"LINE", L"#VEXO_#", L"#VEXO_B", L"#VEXO_BC", L"VEXO_B#", L"#vexo_b#", L"##"}) {
        EXPECT_FALSE((SamplePair{"0", "LINE", key, L"#VEXO_B#"}.isComplete())) << key;
        EXPECT_FALSE((SamplePair{"0", "LINE", L"#VEXO_A#", key}.isComplete())) << key;
    }
}

TEST(PairValue, OfAConstantIsTheSameUnfilled) {
    constexpr PairValue<PairSample> value = "LINE";
    EXPECT_TRUE(value.isConstant());
    EXPECT_EQ(value.unfilled, "LINE");
    constexpr PairValue<PairSample> other = {"1", ""};
    EXPECT_TRUE(other.isConstant());
    EXPECT_EQ(other.unfilled, "");
}

TEST(PairValue, OfAMemberIsEmptyUnfilledUnlessGiven) {
    constexpr PairValue<PairSample> value = &PairSample::size;
    EXPECT_FALSE(value.isConstant());
    EXPECT_EQ(value.unfilled, "");
    constexpr PairValue<PairSample> given = {&PairSample::size, "10.0"};
    EXPECT_EQ(given.unfilled, "10.0");
}
