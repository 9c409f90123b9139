#pragma once

#include <clocale>
#include <string>

namespace rasterplan::test {

/// While it lives, the system's own functions read and write numbers as in the "C" locale: tests compare with
/// them, whatever locale the host is in.
class CLocale {
public:
    CLocale()
        : m_before(std::setlocale(LC_NUMERIC, nullptr)) {
        std::setlocale(LC_NUMERIC, "C");
    }
    ~CLocale() { std::setlocale(LC_NUMERIC, m_before.c_str()); }

    CLocale(const CLocale&) = delete;
    CLocale& operator=(const CLocale&) = delete;

private:
    std::string m_before;
};

} // namespace rasterplan::test
