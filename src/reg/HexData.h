// Values in hexadecimal and as UTF-16LE bytes, as people and registry files see them.
#pragma once

#include "profiles/RegistryTree.h"

#include <optional>
#include <string>
#include <string_view>

// The bytes that Windows would hold for the value: text as UTF-16LE with its terminator.
[[nodiscard]] std::string WindowsBytes(const RegistryValue& value);

// The other way round; nothing where the bytes of a text are not well-formed UTF-16LE. The terminator may be missing.
[[nodiscard]] std::optional<std::string> DataOfWindowsBytes(std::uint32_t type, std::string_view bytes);

// A byte as two digits; a number in as few digits as it needs, but at least so many. Lower case.
[[nodiscard]] std::string HexByte(char byte);
[[nodiscard]] std::string HexNumber(std::uint64_t number, std::size_t digits = 1);

// UTF-16LE as bytes against UTF-8; nothing for what is ill-formed.
[[nodiscard]] std::optional<std::string> Utf16LeOfUtf8(std::string_view text);
[[nodiscard]] std::optional<std::string> Utf8OfUtf16Le(std::string_view bytes);
