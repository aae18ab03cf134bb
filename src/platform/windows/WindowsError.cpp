#include "platform/windows/WindowsError.h"

#include "platform/windows/WideText.h"

#include <array>

#include <windows.h>

std::string WindowsErrorText(unsigned long error) {
    std::array<wchar_t, 512> text{};
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error, 0,
                                        text.data(), static_cast<DWORD>(text.size()), nullptr);
    std::wstring_view found(text.data(), length);
    while (!found.empty() &&
           (found.back() == L'.' || found.back() == L'\n' || found.back() == L'\r' || found.back() == L' '))
        found.remove_suffix(1);
    return found.empty() ? "error " + std::to_string(error) : Utf8(found);
}
