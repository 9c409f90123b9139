#include "base/FileName.h"

#include <gtest/gtest.h>

using ZelkBase::fileNameOf;

TEST(FileName, IsTheLastComponent) {
    EXPECT_EQ(fileNameOf(L"plan.png"), L"plan.png");
    EXPECT_EQ(fileNameOf(L"/site/facades/south.png"), L"south.png");
    EXPECT_EQ(fileNameOf(L"C:\\site\\facades\\south.png"), L"south.png");
    EXPECT_EQ(fileNameOf(L"\\\\server\\share\\south.png"), L"south.png");
    EXPECT_EQ(fileNameOf(L"..\\site/south.png"), L"south.png");
    EXPECT_EQ(fileNameOf(L"../site\\south.png"), L"south.png");
}

TEST(FileName, HasNoDrive) {
    EXPECT_EQ(fileNameOf(L"D:plan.png"), L"plan.png");
    EXPECT_EQ(fileNameOf(L"d:plan.png"), L"plan.png");
    EXPECT_EQ(fileNameOf(L"D:"), L"");
    EXPECT_EQ(fileNameOf(L"D:\\"), L"");
    EXPECT_EQ(fileNameOf(L"1:plan.png"), L"1:plan.png");
    EXPECT_EQ(fileNameOf(L"site/D:plan.png"), L"D:plan.png");
    EXPECT_EQ(fileNameOf(L":"), L":");
}

TEST(FileName, KeepsStemAndExtensionAsTheyAre) {
    EXPECT_EQ(fileNameOf(L"site/plan.v2.tar.png"), L"plan.v2.tar.png");
    EXPECT_EQ(fileNameOf(L"site/.png"), L".png");
    EXPECT_EQ(fileNameOf(L"site/plan"), L"plan");
    EXPECT_EQ(fileNameOf(L"site/plan."), L"plan.");
    EXPECT_EQ(fileNameOf(L"site/.."), L"..");
    EXPECT_EQ(fileNameOf(L"site/S\u00FCd fassade.png "), L"S\u00FCd fassade.png ");
}

TEST(FileName, IsEmptyBehindATrailingSeparator) {
    EXPECT_EQ(fileNameOf(L""), L"");
    EXPECT_EQ(fileNameOf(L"site/"), L"");
    EXPECT_EQ(fileNameOf(L"site\\"), L"");
    EXPECT_EQ(fileNameOf(L"/"), L"");
}
