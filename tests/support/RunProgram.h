// Runs a program to its end, as a shell would.
#pragma once

#include <chrono>
#include <string>
#include <vector>

struct ProgramRun {
    int exitStatus = -1; // -1 where a signal ended it
    std::string output;
    std::string errors;
};

// Waits until the program ends, and ends it after the limit (which raises std::runtime_error). The environment is this
// process' own with the "NAME=VALUE" texts set in addition. Standard input is empty and no terminal.
[[nodiscard]] ProgramRun RunProgram(const std::string& program, const std::vector<std::string>& arguments,
                                    const std::vector<std::string>& environment = {},
                                    std::chrono::seconds limit = std::chrono::seconds(30));

// The same on a terminal of its own on which typed is typed; output and errors both come as output.
[[nodiscard]] ProgramRun RunProgramOnTerminal(const std::string& program, const std::vector<std::string>& arguments,
                                              const std::vector<std::string>& environment, const std::string& typed,
                                              std::chrono::seconds limit = std::chrono::seconds(30));
