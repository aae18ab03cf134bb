// Parts of a test that must not change this process: other users, resource limits.
#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <exception>
#include <functional>

// Runs the function in a copy of this process and waits for its end. True when it returned true; an exception is
// printed and counts as false.
[[nodiscard]] inline bool InChild(const std::function<bool()>& function) {
    const pid_t child = fork();
    if (child == 0) {
        bool passed = false;
        try {
            passed = function();
        } catch (const std::exception& error) {
            std::fprintf(stderr, "in the child process: %s\n", error.what());
        }
        std::fflush(stderr);
        _exit(passed ? 0 : 1);
    }
    int status = -1;
    return child > 0 && waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}
