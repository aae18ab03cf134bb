// Text to number as every reader of the registry and of the forms does it.
#pragma once

#include <cstdint>
#include <string_view>

// The text without the blanks around it; only the character 32 counts as one.
[[nodiscard]] std::string_view Trimmed(std::string_view text);

// The whole text, blanks around it apart, as a decimal number rounded to the nearest integer (halves to even).
// Errors: NumberedError TypeMismatch for text that is no number (the empty text included), Overflow beyond the type.
[[nodiscard]] std::int16_t ToInt16(std::string_view text);
[[nodiscard]] std::int32_t ToInt32(std::string_view text);

// The same as a single-precision number; an empty text counts as 0.
[[nodiscard]] float ToSingle(std::string_view text);

// A number stored in the registry: a "0" is put in front of the text, so a missing or empty value reads as 0.
// Errors as ToInt16; a stored sign is no number behind that "0".
[[nodiscard]] std::int16_t StoredNumber(std::string_view text);

// The number behind the first three characters of a port's name: "COM12" gives 12.
// Errors: InvalidArgument for fewer than three characters, TypeMismatch where no number follows, Overflow.
[[nodiscard]] std::int16_t PortNumber(std::string_view portName);
