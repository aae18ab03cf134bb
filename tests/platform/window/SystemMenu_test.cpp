#include "platform/window/SystemMenu.h"

#include "profiles/NumberedError.h"

#include <vector>

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

// On Windows these are "Close" and the separator above it; Wine has more below them.
TEST_F(SystemMenu, LosesItsLastEntryAndTheOneBeforeIt) {
    std::vector<UINT> entries;
    for (int i = 0; i < GetMenuItemCount(Menu()); ++i)
        entries.push_back(GetMenuItemID(Menu(), i));
    ASSERT_GT(entries.size(), 2U);
    RemoveCloseFromSystemMenu(Number());
    std::vector<UINT> left;
    for (int i = 0; i < GetMenuItemCount(Menu()); ++i)
        left.push_back(GetMenuItemID(Menu(), i));
    entries.resize(entries.size() - 2);
    EXPECT_EQ(left, entries);
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
