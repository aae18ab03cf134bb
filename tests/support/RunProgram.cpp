#include "support/RunProgram.h"

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <stdexcept>

namespace {

// Never returns: becomes the program.
[[noreturn]] void Become(const std::string& program, const std::vector<std::string>& arguments,
                         const std::vector<std::string>& environment) {
    for (const std::string& setting : environment) {
        const auto equals = setting.find('=');
        setenv(setting.substr(0, equals).c_str(), setting.substr(equals + 1).c_str(), 1);
    }
    std::vector<char*> argv{const_cast<char*>(program.c_str())};
    for (const std::string& argument : arguments)
        argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    execv(program.c_str(), argv.data());
    _exit(127);
}

// Reads what comes from either descriptor until both are at their end.
void Collect(std::array<pollfd, 2> sources, ProgramRun& run, pid_t child, std::chrono::seconds limit) {
    const auto end = std::chrono::steady_clock::now() + limit;
    while (sources[0].fd >= 0 || sources[1].fd >= 0) {
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(end - std::chrono::steady_clock::now()).count();
        if (left <= 0 || poll(sources.data(), sources.size(), static_cast<int>(left)) == 0) {
            kill(child, SIGKILL);
            waitpid(child, nullptr, 0);
            throw std::runtime_error("the program did not end in time; so far: " + run.output + run.errors);
        }
        for (std::size_t i = 0; i < sources.size(); ++i) {
            if (sources[i].fd < 0 || sources[i].revents == 0)
                continue;
            std::array<char, 4096> bytes{};
            const ssize_t count = read(sources[i].fd, bytes.data(), bytes.size());
            if (count > 0) {
                (i == 0 ? run.output : run.errors).append(bytes.data(), static_cast<std::size_t>(count));
            } else {
                close(sources[i].fd);
                sources[i].fd = -1;
            }
        }
    }
    int status = 0;
    waitpid(child, &status, 0);
    run.exitStatus = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace

ProgramRun RunProgram(const std::string& program, const std::vector<std::string>& arguments,
                      const std::vector<std::string>& environment, std::chrono::seconds limit) {
    std::array<int, 2> out{};
    std::array<int, 2> errors{};
    if (pipe2(out.data(), O_CLOEXEC) != 0 || pipe2(errors.data(), O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe");
    const pid_t child = fork();
    if (child == 0) {
        dup2(open("/dev/null", O_RDONLY | O_CLOEXEC), STDIN_FILENO);
        dup2(out[1], STDOUT_FILENO);
        dup2(errors[1], STDERR_FILENO);
        Become(program, arguments, environment);
    }
    close(out[1]);
    close(errors[1]);
    ProgramRun run;
    Collect({pollfd{out[0], POLLIN, 0}, pollfd{errors[0], POLLIN, 0}}, run, child, limit);
    return run;
}

ProgramRun RunProgramOnTerminal(const std::string& program, const std::vector<std::string>& arguments,
                                const std::vector<std::string>& environment, const std::string& typed,
                                std::chrono::seconds limit) {
    int terminal = -1;
    const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
    if (child == 0)
        Become(program, arguments, environment);
    if (write(terminal, typed.data(), typed.size()) != static_cast<ssize_t>(typed.size()))
        throw std::runtime_error("nothing can be typed");
    ProgramRun run;
    Collect({pollfd{terminal, POLLIN, 0}, pollfd{-1, 0, 0}}, run, child, limit);
    return run;
}
