#include "platform/registry/UpperCase.h"

#include <windows.h>

char32_t UpperCase(char32_t codePoint) {
    if (codePoint > 0xFFFF)
        return codePoint; // as the registry itself compares
    const auto unit = static_cast<wchar_t>(codePoint);
    wchar_t upper = unit;
    LCMapStringEx(LOCALE_NAME_INVARIANT, LCMAP_UPPERCASE, &unit, 1, &upper, 1, nullptr, nullptr, 0);
    return static_cast<char32_t>(upper);
}
