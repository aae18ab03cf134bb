// Whether the driver option that suppresses zero weights holds for a scale, and the notice that says so.
#pragma once

#include <string>

class Registry;

inline constexpr const char* ZeroWeightNotice =
    "Note, Zero (0) Weight responses are currently prohibited for Single-Cable Scale by the value of Global "
    "Configuration setting Zero Weight Suppression (Single-Cable Scale).";

// Whether the driver option is set: reads 1 and nothing else. Errors: RegistryError; NumberedError for a value that is
// no number.
[[nodiscard]] bool RejectsZeroWeight(Registry& registry);

// The ProgID (see ProgId) of the scale profile's service object; "" where there is none. The name is UTF-8. Errors:
// RegistryError.
[[nodiscard]] std::string ScaleProgId(Registry& registry, const std::string& profileName);

// Whether zero weights of this scale profile are suppressed: the option concerns the maker's single-cable scales alone.
// Errors as above.
[[nodiscard]] bool ProhibitsZeroWeight(Registry& registry, const std::string& profileName);
