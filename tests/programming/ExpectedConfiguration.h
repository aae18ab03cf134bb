// What a scanner's configuration is after programming, written down a second time and on its own, so that the program's
// tables are checked against something.
#pragma once

#include <cstdint>
#include <vector>

// Which class numbers have rules of their own, and numbers between and around them.
[[nodiscard]] std::vector<std::int32_t> InterestingClasses();

// The block that a scanner of the class holds when it held block before.
[[nodiscard]] std::vector<std::uint8_t> ExpectedConfiguration(std::int32_t configurationType,
                                                              std::vector<std::uint8_t> block);
