// What Windows says of its error numbers.
#pragma once

#include <string>

// The system's text for an error number (GetLastError, LSTATUS, HRESULT), without the full stop and line end behind it;
// the number where the system has no text. UTF-8.
[[nodiscard]] std::string WindowsErrorText(unsigned long error);
