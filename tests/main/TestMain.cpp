#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <locale>
#include <string>

namespace {

// Sets the locale that RASTERPLAN_TEST_LOCALE names, as a host may do, and makes sure that it is one in
// which numbers look different: otherwise the run would prove nothing.
bool setHostLocale() {
    const char* const name = std::getenv("RASTERPLAN_TEST_LOCALE");
    if (!name || !*name)
        return true;
    if (!std::setlocale(LC_ALL, name))
        return false;
    std::locale::global(std::locale(name));
    char text[8] = {};
    std::snprintf(text, sizeof text, "%.1f", 0.5);
    return std::string(text) == "0,5";
}

} // namespace

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    if (!setHostLocale()) {
        std::fprintf(stderr, "the locale of RASTERPLAN_TEST_LOCALE is missing or has no decimal comma\n");
        return EXIT_FAILURE;
    }
    return RUN_ALL_TESTS();
}
