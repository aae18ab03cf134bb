// The program runs once: a second start brings the first forward and ends.
#pragma once

class PreviousInstance;

// True when another instance has come forward and this one is to end at once. Where a running instance is reported but
// cannot be reached, this start goes on, with the application title "unwanted instance".
[[nodiscard]] bool YieldToPreviousInstance(PreviousInstance& previous);
