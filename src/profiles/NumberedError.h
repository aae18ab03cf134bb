// An error with the number and the text that message boxes show for it.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

// The numbers of errors that are not the registry store's.
enum class ErrorNumber : std::uint32_t {
    InvalidArgument = 5,
    Overflow = 6,
    SubscriptOutOfRange = 9,
    TypeMismatch = 13,
    InvalidPropertyValue = 380,
    KeyAlreadyAssociated = 457,
};

class NumberedError : public std::runtime_error {
public:
    NumberedError(std::uint32_t number, const std::string& description);
    // The usual description of the number, followed by detail (UTF-8) in brackets unless that is empty.
    explicit NumberedError(ErrorNumber number, const std::string& detail = {});

    [[nodiscard]] std::uint32_t Number() const noexcept { return number_; }
    // As message boxes show the number: a signed 32-bit decimal, so that 0x80040201 reads -2147220991.
    [[nodiscard]] std::int32_t SignedNumber() const noexcept { return static_cast<std::int32_t>(number_); }
    // UTF-8.
    [[nodiscard]] std::string Description() const { return what(); }

private:
    std::uint32_t number_;
};
