// A key as people and registry files name it: "HKLM\Software\..." or "HKEY_LOCAL_MACHINE\Software\...".
#pragma once

#include "profiles/RegistryStore.h"

#include <optional>
#include <string>
#include <string_view>

struct KeyReference {
    RegistryRoot root = RegistryRoot::LocalMachine;
    std::string path; // under the hive; "" is the hive itself

    // With the hive's full name.
    [[nodiscard]] std::string FullName() const;
    [[nodiscard]] KeyReference Below(std::string_view subKey) const;
};

// The hive's name compares without case, its abbreviation is allowed; nothing for another hive than the two there are.
[[nodiscard]] std::optional<KeyReference> ParseKeyReference(std::string_view text);

// Whether two ASCII words are the same without case.
[[nodiscard]] bool SameWord(std::string_view one, std::string_view other);
