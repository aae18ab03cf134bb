// ravlin-reg: a command line look into the registry store.
#include "reg/Commands.h"

#include <unistd.h>

#include <exception>
#include <iostream>
#include <string>
#include <vector>

namespace {

std::optional<bool> AskOnTerminal(const std::string& question) {
    if (isatty(STDIN_FILENO) == 0)
        return std::nullopt;
    std::string answer;
    while (std::cerr << question << std::flush && std::getline(std::cin, answer)) {
        if (SameWord(answer, "y") || SameWord(answer, "yes"))
            return true;
        if (SameWord(answer, "n") || SameWord(answer, "no"))
            return false;
    }
    return false;
}

} // namespace

int main(int count, char** arguments) {
    try {
        const Command command = ParseCommandLine(std::vector<std::string>(arguments + 1, arguments + count));
        const auto tree = OpenSystemRegistryTree();
        RunCommand(command, *tree, {std::cout, AskOnTerminal});
        if (!std::cout.flush())
            throw CommandError("The output could not be written.");
        return 0;
    } catch (const std::exception& error) {
        std::cout.flush();
        std::cerr << "ERROR: " << error.what() << '\n';
        return 1;
    }
}
