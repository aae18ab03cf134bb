// By a named mutex, and a hidden top window that always stands right behind the main window: a later instance finds the
// hidden one by its class and title, and the main window as the one before it.
#include "platform/instance/PreviousInstance.h"

#include <array>

#include <windows.h>

#include <commctrl.h>

namespace {

// The hidden window has the last of these; the instance may also be of an older program.
constexpr std::array TopWindowClasses = {"ThunderRTMain", "ThunderRT5Main", "ThunderRT6Main"};
constexpr ULONGLONG SearchLimitMs = 2000;
constexpr DWORD RetryMs = 20;
constexpr const char* MutexName = "Local\\Ravlin 2 instance"; // one for each session

struct CloseObject {
    void operator()(void* object) const { CloseHandle(object); }
};

HWND FindTopWindow(const std::string& title) {
    for (const char* const name : TopWindowClasses)
        if (HWND window = FindWindowA(name, title.c_str()); window != nullptr)
            return window;
    return nullptr;
}

void StandBehind(HWND top, HWND window) {
    SetWindowPos(top, window, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_NOOWNERZORDER);
}

constexpr UINT_PTR FollowerId = 1;

// Looks over the main window's shoulder: wherever it goes in the order of windows, the hidden one follows.
LRESULT CALLBACK Follow(HWND window, UINT message, WPARAM first, LPARAM second, UINT_PTR id, DWORD_PTR top) {
    const LRESULT result = DefSubclassProc(window, message, first, second);
    if (message == WM_WINDOWPOSCHANGED && (reinterpret_cast<const WINDOWPOS*>(second)->flags & SWP_NOZORDER) == 0)
        StandBehind(reinterpret_cast<HWND>(top), window);
    else if (message == WM_NCDESTROY)
        RemoveWindowSubclass(window, Follow, id);
    return result;
}

} // namespace

class PreviousInstance::Private {
public:
    ~Private() {
        if (top_ == nullptr)
            return;
        RemoveWindowSubclass(window_, Follow, FollowerId);
        DestroyWindow(top_);
    }

    std::unique_ptr<void, CloseObject> mutex_;
    bool running_ = false;
    HWND top_ = nullptr;
    HWND window_ = nullptr;
};

PreviousInstance::PreviousInstance() : private_(std::make_unique<Private>()) {}

PreviousInstance::~PreviousInstance() = default;

bool PreviousInstance::IsRunning() {
    if (!private_->mutex_ && !private_->running_) {
        private_->mutex_.reset(CreateMutexA(nullptr, FALSE, MutexName));
        // Without access to it, it is another user's in this session: an instance all the same.
        private_->running_ = !private_->mutex_ || GetLastError() == ERROR_ALREADY_EXISTS;
    }
    return private_->running_;
}

bool PreviousInstance::BringForward(const std::string& title) {
    const ULONGLONG begin = GetTickCount64();
    HWND top = FindTopWindow(title);
    while (top == nullptr) { // it may have been started together with this one, and is about to make its window
        if (GetTickCount64() - begin > SearchLimitMs)
            return false;
        Sleep(RetryMs);
        top = FindTopWindow(title);
    }
    const HWND window = GetWindow(top, GW_HWNDPREV);
    OpenIcon(window);
    SetForegroundWindow(window);
    return true;
}

void PreviousInstance::ListenForLater(const std::string& title, std::uintptr_t mainWindow,
                                      std::function<void()> /*comeForward*/) {
    const HINSTANCE program = GetModuleHandleA(nullptr);
    WNDCLASSEXA top{};
    top.cbSize = sizeof top;
    top.lpfnWndProc = DefWindowProcA;
    top.hInstance = program;
    top.lpszClassName = TopWindowClasses.back();
    RegisterClassExA(&top);
    private_->top_ = CreateWindowExA(0, TopWindowClasses.back(), title.c_str(), WS_POPUP, 0, 0, 0, 0, nullptr, nullptr,
                                     program, nullptr);
    if (private_->top_ == nullptr)
        return;                                             // a later instance then starts on its own
    private_->window_ = reinterpret_cast<HWND>(mainWindow); // a number is how the rest of the program knows a window
    StandBehind(private_->top_, private_->window_);
    SetWindowSubclass(private_->window_, Follow, FollowerId, reinterpret_cast<DWORD_PTR>(private_->top_));
}
