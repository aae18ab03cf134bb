// Times the start of programs with windows: from the call that makes the process until its window is there and painted,
// and answers. Usage: start_timer RUNS PROGRAM...; of the runs, which take turns, it prints the median,
// the shortest and the longest for each program.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include <windows.h>

namespace {

using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr DWORD LimitMs = 60000;

struct Search {
    DWORD process;
    HWND found;
};

BOOL CALLBACK LookAt(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<Search*>(parameter);
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    if (owner == search.process && IsWindowVisible(window) != FALSE)
        search.found = window;
    return search.found == nullptr ? TRUE : FALSE;
}

HWND VisibleWindow(DWORD process) {
    Search search{process, nullptr};
    EnumWindows(LookAt, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

// Whether nothing of it is left to paint, and it answers.
bool IsReady(HWND window) {
    DWORD_PTR answer = 0;
    return SendMessageTimeoutA(window, WM_NULL, 0, 0, SMTO_NORMAL, LimitMs, &answer) != 0 &&
           GetUpdateRect(window, nullptr, FALSE) == FALSE;
}

// Nothing where the program does not start, ends or shows no window.
std::optional<double> Start(std::string program) {
    STARTUPINFOA how{};
    how.cb = sizeof how;
    PROCESS_INFORMATION started{};
    const auto begin = std::chrono::steady_clock::now();
    if (CreateProcessA(nullptr, program.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &how, &started) == FALSE)
        return std::nullopt;
    Milliseconds time{};
    bool shown = false;
    while (!shown && time.count() < LimitMs && WaitForSingleObject(started.hProcess, 1) == WAIT_TIMEOUT) {
        const HWND window = VisibleWindow(started.dwProcessId);
        shown = window != nullptr && IsReady(window);
        time = std::chrono::steady_clock::now() - begin;
    }
    TerminateProcess(started.hProcess, 0);
    WaitForSingleObject(started.hProcess, LimitMs);
    CloseHandle(started.hThread);
    CloseHandle(started.hProcess);
    return shown ? std::optional(time.count()) : std::nullopt;
}

} // namespace

int main(int argc, char** argv) {
    const int runs = argc < 3 ? 0 : std::atoi(argv[1]);
    if (runs < 1) {
        std::fprintf(stderr, "usage: start_timer RUNS PROGRAM...\n");
        return 2;
    }
    const std::vector<std::string> programs(argv + 2, argv + argc);
    std::vector<std::vector<double>> times(programs.size());
    for (int run = 0; run <= runs; ++run)
        for (std::size_t i = 0; i < programs.size(); ++i) {
            const auto time = Start(programs[i]);
            if (!time) {
                std::fprintf(stderr, "%s showed no window\n", programs[i].c_str());
                return 1;
            }
            if (run > 0) // the first fills the caches
                times[i].push_back(*time);
        }
    for (std::size_t i = 0; i < programs.size(); ++i) {
        std::sort(times[i].begin(), times[i].end());
        std::printf("%s: median %.0f ms, %.0f to %.0f ms of %d starts\n", programs[i].c_str(),
                    times[i][times[i].size() / 2], times[i].front(), times[i].back(), runs);
    }
    return 0;
}
