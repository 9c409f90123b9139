#include "base/ResultText.h"

#include <gtest/gtest.h>

#include <set>

namespace rasterplan_tool {

TEST(ResultText, EveryResultHasWordsOfItsOwn) {
    std::set<std::string_view> texts;
    for (int result = RasterPlanWriter::Success; result <= RasterPlanWriter::UnexpectedFailure; ++result)
        texts.insert(writeResultText(static_cast<RasterPlanWriter::ErrorEnum>(result)));
    EXPECT_EQ(texts.size(), 7U);
    EXPECT_FALSE(texts.contains(""));
}

TEST(ResultText, ResultOfANewerLibraryAsksForOneVersionOfBoth) {
    const auto unknown = static_cast<RasterPlanWriter::ErrorEnum>(7);
    EXPECT_NE(writeResultText(unknown).find("install both in the same version"), std::string_view::npos);
}

} // namespace rasterplan_tool
