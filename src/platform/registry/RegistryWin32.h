// The registry of Windows.
#pragma once

#include "profiles/RegistryTree.h"

#include <chrono>
#include <memory>
#include <string>

// Where a hive of the program lies within one of the system's.
struct RegistryPlace {
    RegistryRoot root;
    // The key that is the program's root, UTF-8; empty for the system's.
    std::string base;
    // The key, below root, that holds a save while it is carried out.
    std::string journal;
};

struct RegistryPlaces {
    RegistryPlace machine;
    RegistryPlace user;
};

// How long an operation waits for another program that is writing.
inline constexpr std::chrono::milliseconds RegistryLockLimit{5000};

// Registries and trees over these places. Several programs may use one place at a time.
[[nodiscard]] std::unique_ptr<Registry> OpenWindowsRegistry(const RegistryPlaces& places,
                                                            std::chrono::milliseconds lockLimit = RegistryLockLimit);
[[nodiscard]] std::unique_ptr<RegistryTree> OpenWindowsTree(const RegistryPlaces& places,
                                                            std::chrono::milliseconds lockLimit = RegistryLockLimit);
