#pragma once

#include <string>

namespace rasterplan::test {

/// Sets the process's locale for C and for C++, as hosts do that speak their user's language. Throws
/// std::runtime_error when it is not there, and when numbers then still have a decimal point: a test under it
/// would prove nothing.
void setHostLocale(const std::string& name);

} // namespace rasterplan::test
