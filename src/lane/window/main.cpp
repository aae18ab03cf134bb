#include "lane/HeadlessLane.h"
#include "lane/LaneArguments.h"
#include "lane/LaneError.h"
#include "lane/window/LaneProgram.h"

#include <csignal>
#include <iostream>

namespace {

int RunHeadless(const LaneArguments& arguments) {
    LaneRunner lane(arguments.options, [&arguments](const std::string& event) {
        if (arguments.verbose) {
            std::cerr << event << std::endl;
        }
    });
    for (const std::string& command : arguments.commands) {
        if (const std::string answer = lane.Execute(command); !answer.starts_with("ok")) {
            std::cerr << "ravlin-lane: " << command << ": " << answer << std::endl;
            return 1;
        }
    }
    RunHeadlessLane(lane, std::cin, std::cout);
    return 0;
}

} // namespace

int main(int argc, char* argv[]) {
    // Whoever reads the answers may go first; the ports are still to be taken away.
    (void)std::signal(SIGPIPE, SIG_IGN);
    try {
        const LaneArguments arguments = ParseLaneArguments({argv + 1, argv + argc});
        if (arguments.help) {
            std::cout << LaneUsage();
            return 0;
        }
        if (arguments.version) {
            std::cout << "ravlin-lane " RAVLIN_VERSION "\n";
            return 0;
        }
        return arguments.headless ? RunHeadless(arguments) : RunLaneWindow(argc, argv, arguments);
    } catch (const LaneError& error) {
        std::cerr << "ravlin-lane: " << error.what() << std::endl;
        return 1;
    }
}
