#include "platform/window/SystemMenu.h"

#include "profiles/NumberedError.h"

#include <windows.h>

void RemoveCloseFromSystemMenu(std::uintptr_t window) {
    const auto handle = reinterpret_cast<HWND>(window);
    const HMENU menu = GetSystemMenu(handle, FALSE);
    if (menu == nullptr)
        return;
    const int count = GetMenuItemCount(menu);
    if (count < 1)
        throw NumberedError(ErrorNumber::Overflow);
    constexpr UINT ByPosition = MF_BYPOSITION | MF_REMOVE;
    RemoveMenu(menu, static_cast<UINT>(count - 1), ByPosition);
    if (count > 1)
        RemoveMenu(menu, static_cast<UINT>(count - 2), ByPosition);
    DrawMenuBar(handle);
}
