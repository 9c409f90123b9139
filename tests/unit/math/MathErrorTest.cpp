#include "math/MathError.h"

#include <gtest/gtest.h>

#include <type_traits>

using namespace rasterplan;
using ZelkBase::Error;
using ZelkBase::Text;

TEST(MathError, PrefixesItsText) {
    EXPECT_EQ(MathError(L"Toleranz zu klein").message(), Text(L"MathError >Toleranz zu klein"));
    EXPECT_EQ(MathErrorZerovector(L"edge").message(), Text(L"MathError >Zero vector >edge"));
    EXPECT_EQ(ErrorNR(L"edge").message(), Text(L"Numerical exception: edge"));
    EXPECT_EQ(MathErrorZerovector(Text()).message(), Text(L"MathError >Zero vector >"));
}

TEST(MathError, TextMayHoldPlaceholders) {
    EXPECT_EQ(ErrorNR(L"%k09").message(), Text(L"Numerical exception: %k09"));
    EXPECT_EQ(MathError(L"%k09").message(), Text(L"MathError >%k09"));
}

TEST(MathError, NumericalErrorsAreNoMathErrors) {
    EXPECT_TRUE((std::is_base_of_v<MathError, MathErrorZerovector>));
    EXPECT_TRUE((std::is_base_of_v<Error, ErrorNR>));
    EXPECT_FALSE((std::is_base_of_v<MathError, ErrorNR>));
}
