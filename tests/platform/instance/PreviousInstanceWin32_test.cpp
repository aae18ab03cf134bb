// How a second start on Windows finds the first. Needs a display.
#include "platform/instance/PreviousInstance.h"

#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <thread>

#include <windows.h>

namespace {

// A main window as the first instance has it.
class Window {
public:
    ~Window() { DestroyWindow(handle_); }
    [[nodiscard]] HWND Handle() const { return handle_; }
    [[nodiscard]] std::uintptr_t Number() const { return reinterpret_cast<std::uintptr_t>(handle_); }

private:
    HWND handle_ = CreateWindowExA(0, "STATIC", "Main window", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 200, 100,
                                   nullptr, nullptr, GetModuleHandleA(nullptr), nullptr);
};

} // namespace

TEST(PreviousInstance, IsNoneForTheFirstAndOneForTheNext) {
    {
        PreviousInstance first;
        EXPECT_FALSE(first.IsRunning());
        EXPECT_FALSE(first.IsRunning()) << "the first answer holds";
        PreviousInstance second;
        EXPECT_TRUE(second.IsRunning());
    }
    PreviousInstance third;
    EXPECT_FALSE(third.IsRunning()) << "it ends with the object";
}

TEST(PreviousInstance, HasItsMinimisedWindowRestored) {
    PreviousInstance first;
    const Window window;
    const Window above; // in front of it, as other programs are
    first.ListenForLater("Ravlin test", window.Number(), [] {});
    ShowWindow(window.Handle(), SW_MINIMIZE);
    ASSERT_TRUE(IsIconic(window.Handle()));
    PreviousInstance second;
    EXPECT_TRUE(second.BringForward("Ravlin test"));
    EXPECT_FALSE(IsIconic(window.Handle()));
    EXPECT_EQ(GetForegroundWindow(), window.Handle());
}

TEST(PreviousInstance, IsWaitedForWhileItStarts) {
    PreviousInstance second;
    std::promise<bool> forward;
    std::future<bool> answer = forward.get_future();
    std::jthread later([&] { forward.set_value(second.BringForward("Ravlin test")); });
    ASSERT_EQ(answer.wait_for(std::chrono::milliseconds(200)), std::future_status::timeout);
    PreviousInstance first;
    const Window window;
    first.ListenForLater("Ravlin test", window.Number(), [] {});
    while (answer.wait_for(std::chrono::milliseconds(1)) ==
           std::future_status::timeout) { // its call restores the window
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) != FALSE)
            DispatchMessageA(&message);
    }
    EXPECT_TRUE(answer.get());
}

TEST(PreviousInstance, OfAnotherTitleIsNotFound) {
    PreviousInstance first;
    const Window window;
    first.ListenForLater("unwanted instance", window.Number(), [] {});
    PreviousInstance second;
    EXPECT_FALSE(second.BringForward("Ravlin test"));
}

TEST(PreviousInstance, ThatEndedIsNotFound) {
    const Window window;
    {
        PreviousInstance first;
        first.ListenForLater("Ravlin test", window.Number(), [] {});
    }
    PreviousInstance second;
    EXPECT_FALSE(second.BringForward("Ravlin test"));
}
