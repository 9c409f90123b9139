#include "base/Error.h"

#include <stdexcept>

#ifndef RASTERPLANWRITER_SUPPORT_ADDRESS
#error "RASTERPLANWRITER_SUPPORT_ADDRESS must name the address that reports are sent to"
#endif

namespace ZelkBase {
namespace {

std::string describe(const Text& message) {
    try {
        return message.utf8();
    } catch (const std::range_error&) {
        return "(the message is not Unicode text)";
    }
}

} // namespace

struct Error::Content {
    Text message;
    std::string what;
};

Error::Error(const Text& message)
    : m_content(std::make_shared<Content>(Content{message, describe(message)})) {}

Text Error::report() const {
    return Text(L"\nAn unexpected error occured.\n\nDescription:\n") + message() +
           L"\n\nIf this message appears continuously, please contact VEXO via email:\n" +
           L"" RASTERPLANWRITER_SUPPORT_ADDRESS L"\n";
}

Text Error::message() const {
    return m_content->message;
}

const char* Error::what() const noexcept {
    return m_content->what.c_str();
}

} // namespace ZelkBase
