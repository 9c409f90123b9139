#pragma once

#include "base/Error.h"
#include "base/Format.h"

namespace rasterplan {

/// A failure of the geometry. Its message begins with "MathError >".
class MathError : public ZelkBase::Error {
public:
    /// Throws std::bad_alloc.
    explicit MathError(const ZelkBase::Text& text)
        : Error(L"MathError >" + text) {}
};

/// A vector of length zero where a direction is needed. Its message begins with "MathError >Zero vector >".
class MathErrorZerovector : public MathError {
public:
    /// Throws std::bad_alloc.
    explicit MathErrorZerovector(const ZelkBase::Text& text)
        : MathError(L"Zero vector >" + text) {}
};

/// A failure of a numerical routine. Its message begins with "Numerical exception: ".
class ErrorNR : public ZelkBase::Error {
public:
    /// Throws std::bad_alloc.
    explicit ErrorNR(const ZelkBase::Text& text)
        : Error(ZelkBase::format(L"Numerical exception: %k01", {text})) {}
};

} // namespace rasterplan
