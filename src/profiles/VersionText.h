// OPOS version numbers as they are shown.
#pragma once

#include <cstdint>
#include <string>

// The digits of major x 1,000,000 + minor x 1,000 + build, placed from the right into the pattern "&&&.&&&.&&&":
// 1008000 gives "1.008.000". The points always stand; digits beyond nine stay in front.
[[nodiscard]] std::string FormatVersion(std::int32_t version);
