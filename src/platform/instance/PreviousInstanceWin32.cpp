// By a named mutex, and a hidden top window that owns the main window: windows stand before the one that owns them, so
// that a later instance finds the main window before the hidden one.
#include "platform/instance/PreviousInstance.h"

#include <array>

#include <windows.h>

namespace {

// The hidden window has the last of these; the instance may also be of an older program.
constexpr std::array TopWindowClasses = {"ThunderRTMain", "ThunderRT5Main", "ThunderRT6Main"};
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

} // namespace

class PreviousInstance::Private {
public:
    ~Private() {
        if (top_ != nullptr)
            DestroyWindow(top_);
    }

    std::unique_ptr<void, CloseObject> mutex_;
    bool running_ = false;
    HWND top_ = nullptr;
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
    const HWND top = FindTopWindow(title);
    if (top == nullptr)
        return false;
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
        return; // a later instance then starts on its own
    // A number is how the rest of the program knows a window.
    const auto window = reinterpret_cast<HWND>(mainWindow);
    SetWindowLongPtrA(window, GWLP_HWNDPARENT, static_cast<LONG_PTR>(reinterpret_cast<std::uintptr_t>(private_->top_)));
    // An owned window has a button on the task bar only when it asks for it.
    SetWindowLongPtrA(window, GWL_EXSTYLE, GetWindowLongPtrA(window, GWL_EXSTYLE) | WS_EX_APPWINDOW);
}
