#pragma once

#include "base/Text.h"

#include <exception>
#include <memory>

namespace ZelkBase {

/// The root of the library's own exceptions. Copies share their content, so that copying never throws. What
/// is moved from is copied: it keeps its message.
class Error : public std::exception {
public:
    /// Throws std::bad_alloc.
    explicit Error(const Text& message);

    Error(const Error&) noexcept = default;
    Error& operator=(const Error&) noexcept = default;
    ~Error() override = default;

    /// What to show a user: the message with a request to send it to the support address. Throws
    /// std::bad_alloc.
    virtual Text report() const;

    /// The message alone. Throws std::bad_alloc.
    virtual Text message() const;

    /// The message as UTF-8, or a substitute when it holds a character beyond U+10FFFF.
    const char* what() const noexcept override;

private:
    struct Content;
    std::shared_ptr<const Content> m_content;
};

} // namespace ZelkBase
