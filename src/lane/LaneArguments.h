// The command line of ravlin-lane.
#pragma once

#include "lane/Lane.h"

#include <string>
#include <vector>

struct LaneArguments {
    LaneOptions options;
    bool headless = false;
    bool verbose = false; // events on standard error
    bool help = false;
    bool version = false;
    std::vector<std::string> commands; // carried out at the start
};

// arguments: without the program's name. The directory of the ports is the chosen one, else the user's own. Errors:
// LaneError.
[[nodiscard]] LaneArguments ParseLaneArguments(const std::vector<std::string>& arguments);

[[nodiscard]] std::string LaneUsage();
