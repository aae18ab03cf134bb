// UTF-8 inside the program against the UTF-16 of registry files and of Windows' length limits.
#pragma once

#include <optional>
#include <string>
#include <string_view>

// All of these are strict: nothing is returned for text that is ill-formed in its encoding (overlong forms, lone
// surrogates, code points above U+10FFFF, a cut-off sequence).
[[nodiscard]] std::optional<std::u32string> DecodeUtf8(std::string_view text);
[[nodiscard]] std::optional<std::u32string> DecodeUtf16(std::u16string_view text);

// The code points are Unicode scalar values.
[[nodiscard]] std::string EncodeUtf8(std::u32string_view codePoints);
[[nodiscard]] std::u16string EncodeUtf16(std::u32string_view codePoints);
