// What every test of a device asks of it.
#pragma once

#include <cstdint>

namespace DeviceTest {

// Milliseconds that a test waits for a device that another program holds.
inline constexpr std::int32_t ClaimTimeout = 1000;
// Milliseconds between two weights of a test that shows them live.
inline constexpr int WeightInterval = 350;
// The time-out of a read that goes on until there is a weight.
inline constexpr std::int32_t Unlimited = -1;

} // namespace DeviceTest
