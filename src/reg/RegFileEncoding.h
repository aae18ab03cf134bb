// The bytes of a registry file against its text.
#pragma once

#include <string>
#include <string_view>

// The text (UTF-8, without byte order mark) of a file in UTF-16LE (with or without byte order mark), UTF-8 (likewise)
// or ASCII. Errors: std::invalid_argument, in a few words, for anything else.
[[nodiscard]] std::string DecodeRegFile(std::string_view bytes);

// UTF-16LE with byte order mark. The text is well-formed UTF-8.
[[nodiscard]] std::string EncodeRegFile(std::string_view text);
