#pragma once

#include "Console.h"

#include <string>
#include <vector>

namespace rasterplan_tool {

/// The whole program: does what the arguments (UTF-8, without the program's name) say and returns the exit
/// status. Never throws.
int run(const std::vector<std::string>& arguments, Console console) noexcept;

} // namespace rasterplan_tool
