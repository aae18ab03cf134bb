// The case of letters in all scripts, by what the system knows of them.
#pragma once

// The code point in upper case, by the simple mapping: one code point for one.
[[nodiscard]] char32_t UpperCase(char32_t codePoint);
