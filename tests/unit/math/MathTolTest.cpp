#include "math/MathTol.h"

#include <gtest/gtest.h>

#include <type_traits>

using rasterplan::MathError;
using rasterplan::MathTol;
using ZelkBase::Text;

TEST(MathTol, DefaultsAreAllTheSame) {
    const MathTol tolerance;
    EXPECT_EQ(tolerance.first(), 1e-10);
    EXPECT_EQ(tolerance.second(), 1e-10);
    EXPECT_EQ(tolerance.length(), 1e-10);
    EXPECT_TRUE(std::has_virtual_destructor_v<MathTol>);
}

TEST(MathTol, StoresItsTolerances) {
    const MathTol tolerance(1, 2, 0);
    EXPECT_EQ(tolerance.first(), 1);
    EXPECT_EQ(tolerance.second(), 2);
    EXPECT_EQ(tolerance.length(), 0);
}

TEST(MathTol, NegativeToleranceThrows) {
    EXPECT_THROW(MathTol(-1e-10, 1, 1), MathError);
    EXPECT_THROW(MathTol(1, -1e-10, 1), MathError);
    try {
        const MathTol tolerance(1e-10, 1e-10, -1.0);
        ADD_FAILURE() << "a tolerance of " << tolerance.length();
    } catch (const MathError& error) {
        EXPECT_EQ(error.message(), Text(L"MathError >Toleranz zu klein"));
    }
}
