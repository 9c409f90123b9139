#include "host/HostLocale.h"

#include <clocale>
#include <cstdio>
#include <locale>
#include <sstream>
#include <stdexcept>

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define RASTERPLAN_FINDS_LEAKS
#endif
#elif defined(__SANITIZE_ADDRESS__)
#define RASTERPLAN_FINDS_LEAKS
#endif
#ifdef RASTERPLAN_FINDS_LEAKS
#include <sanitizer/lsan_interface.h>
#endif

namespace rasterplan::test {
namespace {

// Where the C++ library knows no locale by name: what differs in the German one.
class CommaPunctuation : public std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

class WideCommaPunctuation : public std::numpunct<wchar_t> {
    wchar_t do_decimal_point() const override { return L','; }
    wchar_t do_thousands_sep() const override { return L'.'; }
    std::string do_grouping() const override { return "\3"; }
};

std::locale namedLocale([[maybe_unused]] const std::string& name) {
#ifdef _WIN32
    return {std::locale(std::locale::classic(), new CommaPunctuation), new WideCommaPunctuation};
#else
    return std::locale(name);
#endif
}

void setBothLocales(const std::string& name) {
#ifdef RASTERPLAN_FINDS_LEAKS
    // The C library keeps the path that LOCPATH names, and loses the pointer to it.
    const __lsan::ScopedDisabler systemLeaks;
#endif
    // The C++ locale first: setting it sets the C one too, to one without a name where it has none.
    std::locale::global(namedLocale(name));
    if (!std::setlocale(LC_ALL, name.c_str()))
        throw std::runtime_error("there is no locale " + name);
}

} // namespace

void setHostLocale(const std::string& name) {
    setBothLocales(name);
    char printed[8] = {};
    std::snprintf(printed, sizeof printed, "%.1f", 0.5);
    std::ostringstream streamed;
    streamed << 0.5;
    if (std::string(printed) != "0,5" || streamed.str() != "0,5")
        throw std::runtime_error("the locale " + name + " has no decimal comma");
}

} // namespace rasterplan::test
