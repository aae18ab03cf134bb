#include "platform/registry/NamedLock.h"

#include "platform/windows/WideText.h"

#include <windows.h>

namespace {

constexpr DWORD BetweenTriesMs = 5;

} // namespace

void NamedLock::Close::operator()(void* object) const {
    CloseHandle(object);
}

std::optional<NamedLock> NamedLock::Take(const std::string& name, std::chrono::milliseconds limit) {
    const std::wstring wide = Wide("Global\\" + name); // for the sessions of all users
    const auto deadline = std::chrono::steady_clock::now() + limit;
    while (true) {
        void* const object = CreateMutexW(nullptr, FALSE, wide.c_str());
        if (object != nullptr && GetLastError() != ERROR_ALREADY_EXISTS)
            return NamedLock(object);
        if (object != nullptr)
            CloseHandle(object); // otherwise it is another user's, who does not let us look
        if (std::chrono::steady_clock::now() >= deadline)
            return std::nullopt;
        Sleep(BetweenTriesMs);
    }
}
