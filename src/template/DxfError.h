#pragma once

#include "base/Utf8.h"

#include <exception>
#include <string>
#include <string_view>

namespace rasterplan {

/// A failure of the DXF layer; the facade answers it with the result DxfFailure.
class DxfError : public std::exception {
public:
    /// Throws std::bad_alloc.
    explicit DxfError(std::wstring_view message)
        : m_message(message)
        , m_what(ZelkBase::toUtf8(message)) {}

    const std::wstring& message() const noexcept { return m_message; }

    /// The message as UTF-8.
    const char* what() const noexcept override { return m_what.c_str(); }

private:
    std::wstring m_message;
    std::string m_what;
};

} // namespace rasterplan
