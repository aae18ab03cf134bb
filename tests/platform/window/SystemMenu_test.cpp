#include "platform/window/SystemMenu.h"

#include "profiles/NumberedError.h"

#include <gtest/gtest.h>

#include <windows.h>

namespace {

class SystemMenu : public testing::Test {
protected:
    ~SystemMenu() override { DestroyWindow(window_); }

    [[nodiscard]] std::uintptr_t Number() const { return reinterpret_cast<std::uintptr_t>(window_); }
    [[nodiscard]] HMENU Menu() const { return GetSystemMenu(window_, FALSE); }

    HWND window_ = CreateWindowExA(0, "STATIC", "Lane", WS_OVERLAPPEDWINDOW, 0, 0, 100, 100, nullptr, nullptr,
                                   GetModuleHandleA(nullptr), nullptr);
};

} // namespace

TEST_F(SystemMenu, LosesCloseAndTheSeparatorAboveIt) {
    const int before = GetMenuItemCount(Menu());
    ASSERT_EQ(GetMenuItemID(Menu(), before - 1), static_cast<UINT>(SC_CLOSE));
    RemoveCloseFromSystemMenu(Number());
    EXPECT_EQ(GetMenuItemCount(Menu()), before - 2);
    EXPECT_EQ(GetMenuState(Menu(), SC_CLOSE, MF_BYCOMMAND), static_cast<UINT>(-1));
}

TEST_F(SystemMenu, WithoutEntriesIsAnOverflow) {
    while (GetMenuItemCount(Menu()) > 0)
        RemoveMenu(Menu(), 0, MF_BYPOSITION);
    try {
        RemoveCloseFromSystemMenu(Number());
        FAIL() << "no error was raised";
    } catch (const NumberedError& error) {
        EXPECT_EQ(error.Number(), static_cast<std::uint32_t>(ErrorNumber::Overflow));
    }
}

TEST_F(SystemMenu, ThatAWindowDoesNotHaveIsLeftAlone) {
    SetWindowLongA(window_, GWL_STYLE, WS_POPUP);
    RemoveCloseFromSystemMenu(0);
}
