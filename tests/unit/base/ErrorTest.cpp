#include "base/Error.h"

#include <gtest/gtest.h>

#include <exception>
#include <string>
#include <type_traits>
#include <utility>

using ZelkBase::Error;
using ZelkBase::Text;

namespace {

const Text beforeMessage = L"\nAn unexpected error occured.\n\nDescription:\n";
const Text behindMessage = L"\n\nIf this message appears continuously, please contact VEXO via email:\n" //
                           L"" RASTERPLANWRITER_SUPPORT_ADDRESS L"\n";

} // namespace

TEST(Error, CarriesItsMessage) {
    const Error error(L"Null pointer dereferenced");
    EXPECT_EQ(error.message(), Text(L"Null pointer dereferenced"));
    EXPECT_STREQ(error.what(), "Null pointer dereferenced");
}

TEST(Error, ReportNamesMessageAndSupportAddress) {
    EXPECT_EQ(Error(L"Stairs").report(), beforeMessage + L"Stairs" + behindMessage);
}

TEST(Error, ReportOfAnEmptyMessageKeepsTheFixedParts) {
    EXPECT_EQ(Error(Text()).report(), beforeMessage + behindMessage);
    EXPECT_GT(std::string(RASTERPLANWRITER_SUPPORT_ADDRESS).size(), 0u);
}

TEST(Error, HostCatchesAStandardException) {
    try {
        throw Error(L"Stra\u00dfe");
    } catch (const std::exception& exception) {
        EXPECT_STREQ(exception.what(), "Stra\xC3\x9F"
                                       "e");
    }
}

TEST(Error, CopyingNeverThrows) {
    EXPECT_TRUE(std::is_nothrow_copy_constructible_v<Error>);
    EXPECT_TRUE(std::is_nothrow_copy_assignable_v<Error>);
    Error copy(L"first");
    const char* kept = nullptr;
    {
        const Error original(L"second");
        kept = original.what();
        copy = original;
    }
    EXPECT_EQ(copy.what(), kept);
    EXPECT_EQ(copy.message(), Text(L"second"));
}

TEST(Error, MovingLeavesTheSourceItsMessage) {
    Error source(L"first");
    Error taken(std::move(source));
    EXPECT_STREQ(source.what(), "first"); // NOLINT(bugprone-use-after-move)
    Error assigned(L"second");
    assigned = std::move(taken);
    EXPECT_STREQ(taken.what(), "first"); // NOLINT(bugprone-use-after-move)
    EXPECT_EQ(taken.message(), Text(L"first"));
    EXPECT_STREQ(assigned.what(), "first");
}

TEST(Error, MessageThatIsNoUnicodeStillHasAWhat) {
    if (sizeof(wchar_t) == 2)
        GTEST_SKIP() << "every wide character converts here";
    const std::wstring message(1, static_cast<wchar_t>(0x110000));
    const Error error{Text(message)};
    EXPECT_STRNE(error.what(), "");
    EXPECT_EQ(error.message(), Text(message));
}
