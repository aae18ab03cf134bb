// What a scanner's configuration is after programming, written down a second time and on its own, so that the program's
// tables are checked against something.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// Which class numbers have rules of their own, and numbers between and around them.
[[nodiscard]] std::vector<std::int32_t> InterestingClasses();
// Those of them whose scanners are written back as they were.
[[nodiscard]] std::vector<std::int32_t> ClassesWithoutPatches();

// How a scanner of the class is spoken to.
struct ExpectedExchange {
    bool wokenBySset = false;
    bool wokenByPower = false;
    std::string request;
    std::string writtenBehind; // what stands in front of the block, with an ordinary firmware
};
[[nodiscard]] ExpectedExchange ExpectedExchangeOf(std::int32_t configurationType);

// The block that a scanner of the class holds when it held block before.
[[nodiscard]] std::vector<std::uint8_t> ExpectedConfiguration(std::int32_t configurationType,
                                                              std::vector<std::uint8_t> block);
