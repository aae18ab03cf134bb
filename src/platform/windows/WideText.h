// UTF-8 inside the program against the UTF-16 of Windows.
#pragma once

#include <string>
#include <string_view>

// Both put U+FFFD in the place of what is ill-formed.
[[nodiscard]] std::wstring Wide(std::string_view utf8);
[[nodiscard]] std::string Utf8(std::wstring_view wide);
