#pragma once

#include "base/Console.h"

#include <functional>
#include <string>
#include <vector>

namespace rasterplan_tool {

/// Hands out the arguments (UTF-8, without the program's name). May throw.
using ArgumentReader = std::function<std::vector<std::string>()>;

/// The whole program: does what the arguments say and returns the exit status. Never throws.
int run(const ArgumentReader& readArguments, Console console) noexcept;

} // namespace rasterplan_tool
