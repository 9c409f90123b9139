#pragma once

#include <cstdlib>

#ifndef _WIN32
#include <unistd.h>
#endif

namespace rasterplan::test {

/// While it lives, permissions of files bind this process even where it runs as the system's administrator:
/// it then acts as the user "nobody". Elsewhere it changes nothing.
class OrdinaryUser {
public:
#ifdef _WIN32
    /// Whether permissions do bind.
    bool holds() const {
        return true;
    }
#else
    OrdinaryUser()
        : m_before(geteuid())
        , m_holds(m_before != 0 || seteuid(65534) == 0) {}
    ~OrdinaryUser() {
        if (seteuid(m_before) != 0)
            std::abort(); // the tests that follow would not be what they say
    }

    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

    /// Whether permissions do bind: a container may know no other user than the administrator.
    bool holds() const {
        return m_holds;
    }

    /// The words of a shell before a program's name that have the same effect on the program.
    static const char* shellPrefix() {
        return geteuid() == 0 ? "setpriv --reuid=65534 --regid=65534 --clear-groups " : "";
    }

private:
    uid_t m_before;
    bool m_holds;
#endif
};

} // namespace rasterplan::test
