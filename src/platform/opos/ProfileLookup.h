// How control objects find a profile in the registry.
#pragma once

#include "profiles/RegistryStore.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

struct FoundProfile {
    std::string name;   // as the key is called
    std::string progId; // the default value
};

// The profile that the name stands for: a string value of that name in the class folder points to it, else it is the
// profile's own name, in any case. Nothing for an empty name, one of 256 characters or more and one without a profile.
// deviceClass: DeviceClass. Errors: RegistryError.
[[nodiscard]] std::optional<FoundProfile> FindProfile(Registry& registry, std::int32_t deviceClass,
                                                      const std::string& name);

// Whether the profile of a serial scanner uses the port. Errors: RegistryError.
[[nodiscard]] bool ScannerUsesPort(Registry& registry, int port);

// A value of a key of the machine's hive, "" where there is none. Errors: RegistryError.
[[nodiscard]] std::string ReadMachineValue(Registry& registry, std::string_view key, std::string_view value);

// The date (YYYY-MM-DD) in the profile's description, "" where there is none. Errors: RegistryError.
[[nodiscard]] std::string CreationDate(Registry& registry, std::int32_t deviceClass, const std::string& profile);
