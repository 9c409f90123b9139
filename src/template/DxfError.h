#pragma once

#include <stdexcept>

namespace rasterplan {

/// A failure of the DXF layer; the facade answers it with the result DxfFailure.
class DxfError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace rasterplan
