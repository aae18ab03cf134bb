#include "profiles/NumberedError.h"

namespace {

std::string Describe(ErrorNumber number, const std::string& detail) {
    std::string text;
    switch (number) {
    case ErrorNumber::InvalidArgument:
        text = "Invalid procedure call or argument";
        break;
    case ErrorNumber::Overflow:
        text = "Overflow";
        break;
    case ErrorNumber::SubscriptOutOfRange:
        text = "Subscript out of range";
        break;
    case ErrorNumber::TypeMismatch:
        text = "Type mismatch";
        break;
    case ErrorNumber::InvalidPropertyValue:
        text = "Invalid property value";
        break;
    case ErrorNumber::KeyAlreadyAssociated:
        text = "This key is already associated with an element of this collection";
        break;
    }
    return detail.empty() ? text : text + " (" + detail + ")";
}

} // namespace

NumberedError::NumberedError(std::uint32_t number, const std::string& description)
    : std::runtime_error(description), number_(number) {}

NumberedError::NumberedError(ErrorNumber number, const std::string& detail)
    : std::runtime_error(Describe(number, detail)), number_(static_cast<std::uint32_t>(number)) {}
