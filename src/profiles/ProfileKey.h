// The sequences by which every profile class reads and writes its key.
#pragma once

#include "profiles/RegistryStore.h"

#include <span>
#include <string>
#include <string_view>

// One value to be written; the empty name is the default value.
struct NamedText {
    std::string_view name;
    std::string text;
};

// The key of one profile, open for reading. Never creates it; all its values come from one consistent state.
class ProfileReader {
public:
    // folder is a class folder of RegistryPaths, name the profile's name.
    ProfileReader(Registry& registry, std::string_view folder, const std::string& name);

    [[nodiscard]] std::string Text(std::string_view valueName);
    // Errors: NumberedError TypeMismatch or Overflow.
    [[nodiscard]] std::int16_t Number(std::string_view valueName);
    // The number of a value like "COM4"; 0 where it is missing or nothing follows the first three characters.
    [[nodiscard]] std::int16_t Port(std::string_view valueName);

private:
    std::unique_ptr<RegistryStore> store_;
};

// Writes the values in their order to the profile's key, in one transaction. With wipe, a key that holds anything is
// deleted with all it holds and made again first.
void SaveProfile(Registry& registry, const std::string& folder, const std::string& name, bool wipe,
                 std::span<const NamedText> values);

// "Tavrin Device Instance, created " and the local date and time.
[[nodiscard]] std::string InstanceDescription();
