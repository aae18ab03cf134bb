// The registry of a system without one: a SQLite database per hive.
#pragma once

#include "platform/registry/HiveFiles.h"
#include "profiles/RegistryTree.h"

#include <chrono>
#include <memory>

// How long an operation waits for another program that is writing.
inline constexpr std::chrono::milliseconds RegistryLockLimit{5000};

// Registries and trees over these files. Several programs may use one file at a time.
[[nodiscard]] std::unique_ptr<Registry> OpenSqliteRegistry(const HiveFiles& files,
                                                           std::chrono::milliseconds lockLimit = RegistryLockLimit);
[[nodiscard]] std::unique_ptr<RegistryTree> OpenSqliteTree(const HiveFiles& files,
                                                           std::chrono::milliseconds lockLimit = RegistryLockLimit);
