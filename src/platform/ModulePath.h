#pragma once

#include <filesystem>

namespace rasterplan {

/// The file that this code was loaded from: the library, or the program that it is linked into; not the
/// host's executable as such. On Linux it is the file itself, absolute, whatever link or name led to it; of a
/// file that was deleted or replaced since, the last component is not to be relied on. Empty when the system
/// does not tell: on Linux without /proc, on Windows also from 260 characters on.
std::filesystem::path modulePath();

} // namespace rasterplan
