// The command language of the lane: a line of text in, "ok" or "error" and a reason out.
#pragma once

#include "lane/Lane.h"

#include <string>

// Carries out one command line (without its line end) and returns the answer (one line without its end). Any line has
// an answer; "quit" is answered, ending is the caller's.
[[nodiscard]] std::string ExecuteLaneCommand(Lane& lane, const std::string& line);

// Whether the line asks to end.
[[nodiscard]] bool IsQuit(const std::string& line);

// One line per command, for a help text.
[[nodiscard]] std::string LaneCommandHelp();
