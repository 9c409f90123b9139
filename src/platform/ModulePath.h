#pragma once

#include <filesystem>

namespace rasterplan {

/// The file that this code was loaded from: the library, or the program that it is linked into; not the
/// host's executable as such. Empty when the system does not tell, on Windows also from 260 characters on.
std::filesystem::path modulePath();

} // namespace rasterplan
