// One change of a hive, absolute, so that doing it twice is the same as doing it once.
#pragma once

#include "profiles/RegistryTree.h"

#include <cstdint>
#include <string>
#include <vector>

struct RegistryChange {
    enum class Kind : std::uint8_t {
        MakeKey,
        DropKey, // with all below it
        PutValue,
        DropValue,
    };
    Kind kind = Kind::MakeKey;
    std::string path;    // below the hive's place, UTF-8
    RegistryValue value; // of DropValue the name only

    bool operator==(const RegistryChange&) const = default;
};

using RegistryChanges = std::vector<RegistryChange>;
