// ravlin-lane with a window.
#pragma once

#include "lane/LaneArguments.h"

// Runs until the window is closed; returns the exit status.
[[nodiscard]] int RunLaneWindow(int argc, char* argv[], const LaneArguments& arguments);
