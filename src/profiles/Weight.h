// Weights as they are shown.
#pragma once

#include <cstdint>
#include <string>

// The OPOS weight unit that is shown as pounds; any other is shown as kilograms.
inline constexpr std::int32_t PoundUnit = 4;

// A weight in thousandths of the unit: 1234 gives "1.23 lb" in pounds and "1.234 kg" in any other unit. Halves are
// rounded away from zero.
[[nodiscard]] std::string FormatWeight(std::int32_t thousandths, std::int32_t weightUnit);

// The number alone, with three decimals: 30000 gives "30.000".
[[nodiscard]] std::string FormatThousandths(std::int32_t thousandths);
