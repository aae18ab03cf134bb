// The names of OPOS codes. Each function gives the name, " (", the code in decimal and ")".
#pragma once

#include <cstdint>
#include <string>

// ScanDataType values; "Unknown" for any other code.
[[nodiscard]] std::string SymbologyName(std::int32_t code);
// ResultCode values and the results of method calls; no name for any other code.
[[nodiscard]] std::string ResultCodeName(std::int32_t code);
// OpenResult values; no name for any other code.
[[nodiscard]] std::string OpenResultName(std::int32_t code);
// State values; no name for any other code.
[[nodiscard]] std::string StateName(std::int32_t code);
