// The lane by text alone: commands in, answers out.
#pragma once

#include "lane/LaneRunner.h"

#include <iosfwd>

// Answers each line of input with a line of output, until "quit" or the end of the input.
void RunHeadlessLane(LaneRunner& lane, std::istream& input, std::ostream& output);
