// The rules for the names of keys and values: what is allowed and when two of them are the same.
#pragma once

#include "profiles/RegistryStore.h"

#include <string>
#include <string_view>
#include <vector>

// The name as it is compared: every code point in upper case (simple mapping), UTF-8. The name is well-formed UTF-8.
[[nodiscard]] std::string FoldedName(std::string_view name);

// The key names of a path without the empty ones that leading, trailing and doubled backslashes leave.
[[nodiscard]] std::vector<std::string_view> PathNames(std::string_view path);

// A path cut before its last name; both empty for the empty path. The parent keeps no trailing backslash.
struct CutPath {
    std::string_view parent;
    std::string_view name;
};
[[nodiscard]] CutPath CutLastName(std::string_view path);

// These raise RegistryError with the given number for ill-formed UTF-8 and for names of a forbidden length.
void CheckKeyName(std::string_view name, RegistryErrorNumber number);
void CheckValueName(std::string_view name, RegistryErrorNumber number);
void CheckText(std::string_view text, RegistryErrorNumber number);
